#include "base/utf.h"

namespace qen::base {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool IsHighSurrogate(char32_t c) { return c >= 0xD800 && c < 0xDC00; }
bool IsLowSurrogate(char32_t c) { return c >= 0xDC00 && c < 0xE000; }

struct Sequence {
  std::size_t length = 0;  // 0: not well formed
  char32_t character = 0;
};

// The length that a first byte announces, the bits it carries, and the smallest character of that length.
struct Lead {
  std::uint8_t mask, bits;
  std::size_t length;
  char32_t smallest;
};
constexpr Lead kLeads[] = {{0x80, 0x00, 1, 0}, {0xE0, 0xC0, 2, 0x80}, {0xF0, 0xE0, 3, 0x800}, {0xF8, 0xF0, 4, 0x10000}};

std::uint8_t Byte(char c) { return static_cast<std::uint8_t>(c); }

Sequence Decode(std::string_view text) {
  for (const Lead& lead : kLeads) {
    if ((Byte(text[0]) & lead.mask) != lead.bits) continue;
    if (text.size() < lead.length) return {};
    char32_t character = Byte(text[0]) & static_cast<std::uint8_t>(~lead.mask);
    for (std::size_t i = 1; i < lead.length; ++i) {
      if ((Byte(text[i]) & 0xC0) != 0x80) return {};
      character = (character << 6) | (Byte(text[i]) & 0x3FU);
    }
    const bool surrogate = IsHighSurrogate(character) || IsLowSurrogate(character);
    if (character < lead.smallest || character > 0x10FFFF || surrogate) return {};
    return {lead.length, character};
  }
  return {};
}

void AppendUtf8(std::string& out, char32_t c) {
  const auto tail = [&out, c](unsigned shift) { out.push_back(static_cast<char>(0x80 | ((c >> shift) & 0x3F))); };
  if (c < 0x80) {
    out.push_back(static_cast<char>(c));
  } else if (c < 0x800) {
    out.push_back(static_cast<char>(0xC0 | (c >> 6)));
    tail(0);
  } else if (c < 0x10000) {
    out.push_back(static_cast<char>(0xE0 | (c >> 12)));
    tail(6);
    tail(0);
  } else {
    out.push_back(static_cast<char>(0xF0 | (c >> 18)));
    tail(12);
    tail(6);
    tail(0);
  }
}

void AppendUtf16(String& out, char32_t c) {
  if (c < 0x10000) {
    out.push_back(static_cast<Char>(c));
    return;
  }
  out.push_back(static_cast<Char>(0xD800 + ((c - 0x10000) >> 10)));
  out.push_back(static_cast<Char>(0xDC00 + ((c - 0x10000) & 0x3FF)));
}

}  // namespace

std::string ToUtf8(StringView text) {
  std::string out;
  out.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char32_t c = text[i];
    if (IsHighSurrogate(c) && i + 1 < text.size() && IsLowSurrogate(text[i + 1])) {
      AppendUtf8(out, 0x10000 + ((c - 0xD800) << 10) + (text[i + 1] - 0xDC00U));
      ++i;
    } else {
      AppendUtf8(out, IsHighSurrogate(c) || IsLowSurrogate(c) ? kReplacement : c);
    }
  }
  return out;
}

String ToUtf16(std::string_view text) {
  String out;
  out.reserve(text.size());
  while (!text.empty()) {
    const Sequence sequence = Decode(text);
    AppendUtf16(out, sequence.length == 0 ? kReplacement : sequence.character);
    text.remove_prefix(sequence.length == 0 ? 1 : sequence.length);
  }
  return out;
}

bool IsUtf8(std::span<const std::uint8_t> bytes) {
  std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
  while (!text.empty()) {
    const Sequence sequence = Decode(text);
    if (sequence.length == 0) return false;
    text.remove_prefix(sequence.length);
  }
  return true;
}

}  // namespace qen::base
