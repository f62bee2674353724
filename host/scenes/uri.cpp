#include "host/scenes/uri.h"

#include <array>
#include <charconv>

namespace qen::host {
namespace {

constexpr std::string_view kScheme = "data:";
constexpr std::string_view kBase64 = ";base64,";
constexpr std::string_view kAlphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr std::uint8_t kNoDigit = 64;

constexpr std::array<std::uint8_t, 256> MakeDigits() {
  std::array<std::uint8_t, 256> digits{};
  digits.fill(kNoDigit);
  for (std::size_t i = 0; i < kAlphabet.size(); ++i) {
    digits[static_cast<unsigned char>(kAlphabet[i])] = static_cast<std::uint8_t>(i);
  }
  return digits;
}

std::optional<std::vector<std::uint8_t>> DecodeBase64(std::string_view text) {
  static constexpr std::array<std::uint8_t, 256> kDigits = MakeDigits();
  while (text.ends_with('=')) text.remove_suffix(1);
  std::vector<std::uint8_t> bytes;
  bytes.reserve(text.size() * 3 / 4);
  std::uint32_t bits = 0;
  unsigned count = 0;
  for (const char c : text) {
    const std::uint8_t digit = kDigits[static_cast<unsigned char>(c)];
    if (digit == kNoDigit) return std::nullopt;
    bits = bits << 6U | digit;
    count += 6;
    if (count < 8) continue;
    count -= 8;
    bytes.push_back(static_cast<std::uint8_t>(bits >> count));
  }
  return bytes;
}

}  // namespace

bool IsDataUri(std::string_view uri) { return uri.starts_with(kScheme); }

std::optional<std::vector<std::uint8_t>> DecodeDataUri(std::string_view uri) {
  const std::size_t mark = uri.find(kBase64);
  if (!IsDataUri(uri) || mark == std::string_view::npos) return std::nullopt;
  return DecodeBase64(uri.substr(mark + kBase64.size()));
}

std::string DecodePercent(std::string_view text) {
  std::string decoded;
  for (std::size_t i = 0; i < text.size(); ++i) {
    unsigned char code = 0;
    const std::string_view digits = text.substr(i + 1, 2);
    const char* end = digits.data() + digits.size();
    const bool escape =
        text[i] == '%' && digits.size() == 2 && std::from_chars(digits.data(), end, code, 16).ptr == end;
    decoded += escape ? static_cast<char>(code) : text[i];
    if (escape) i += 2;
  }
  return decoded;
}

}  // namespace qen::host
