#include "formats/source_text.h"

#include <algorithm>
#include <string_view>

#include "formats/definition_syntax.h"
#include "formats/utf8.h"

namespace qen::formats {
namespace {

std::string_view AsChars(std::span<const std::uint8_t> bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

// A mark tells; else Latin letters do, whose first byte is zero with the big end first.
Encoding EncodingOf(std::span<const std::uint8_t> bytes) {
  const auto begins = [&bytes](std::uint8_t first, std::uint8_t second) {
    return bytes.size() >= 2 && bytes[0] == first && bytes[1] == second;
  };
  if (begins(0xFE, 0xFF)) return Encoding::Utf16BE;
  if (!IsReadAsUtf16(bytes)) return Encoding::Utf8;
  if (begins(0xFF, 0xFE)) return Encoding::Utf16LE;
  std::size_t zeros[2] = {};
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    if (bytes[i] == 0) ++zeros[i % 2];
  }
  return zeros[0] > zeros[1] ? Encoding::Utf16BE : Encoding::Utf16LE;
}

String Decode(std::span<const std::uint8_t> bytes, Encoding encoding) {
  String text;
  if (encoding == Encoding::Utf8) {
    text.reserve(bytes.size());
    for (std::string_view rest = AsChars(bytes); !rest.empty();) {
      const Utf8Sequence sequence = DecodeUtf8(rest);
      AppendUtf16(text, sequence.character);
      rest.remove_prefix(sequence.length);
    }
    return text;
  }
  const std::size_t low = encoding == Encoding::Utf16LE ? 0 : 1;
  text.resize(bytes.size() / 2);
  for (std::size_t i = 0; i < text.size(); ++i) {
    text[i] = static_cast<Char>(bytes[2 * i + low] | (bytes[2 * i + 1 - low] << 8));
  }
  return text;
}

}  // namespace

SourceText::SourceText(std::vector<std::uint8_t> bytes)
    : bytes_(std::move(bytes)), encoding_(EncodingOf(bytes_)), text_(Decode(bytes_, encoding_)) {
  FindLines();
}

bool SourceText::HasMark() const { return text_.starts_with(kByteOrderMark); }

void SourceText::FindLines() {
  lines_.push_back(0);
  for (std::size_t i = 0; i < text_.size(); ++i) {
    const bool pair = text_[i] == u'\r' && i + 1 < text_.size() && text_[i + 1] == u'\n';
    if (!pair && (text_[i] == u'\n' || text_[i] == u'\r')) lines_.push_back(i + 1);
  }
}

std::size_t SourceText::LineIndex(std::size_t unit) const {
  return static_cast<std::size_t>(std::ranges::upper_bound(lines_, unit) - lines_.begin()) - 1;
}

Place SourceText::PlaceOf(std::size_t unit) const {
  unit = std::min(unit, text_.size());
  const std::size_t line = LineIndex(unit);
  const std::size_t first = line == 0 && HasMark() ? 1 : lines_[line];
  return {static_cast<std::uint32_t>(line + 1), static_cast<std::uint32_t>(unit - std::min(first, unit) + 1)};
}

std::size_t SourceText::BeginOf(std::uint32_t line) const {
  const std::size_t index = std::min<std::size_t>(line - 1, lines_.size() - 1);
  return index == 0 && HasMark() ? 1 : lines_[index];
}

std::size_t SourceText::LineEnd(std::size_t unit) const {
  return std::min(text_.find_first_of(u"\r\n", std::min(unit, text_.size())), text_.size());
}

StringView SourceText::LineOf(std::size_t unit) const {
  const std::size_t index = LineIndex(std::min(unit, text_.size()));
  const std::size_t begin = BeginOf(static_cast<std::uint32_t>(index + 1));
  const std::size_t end = index + 1 < lines_.size() ? lines_[index + 1] : text_.size();
  StringView line = StringView(text_).substr(begin, end - begin);
  for (const Char last : {u'\n', u'\r'}) {
    if (line.ends_with(last)) line.remove_suffix(1);
  }
  return line;
}

void SourceText::AppendEncoded(std::vector<std::uint8_t>& bytes, StringView text) const {
  if (encoding_ == Encoding::Utf8) {
    std::string encoded;
    AppendUtf8(encoded, text);
    bytes.insert(bytes.end(), encoded.begin(), encoded.end());
    return;
  }
  for (const Char unit : text) {
    const std::uint8_t pair[] = {static_cast<std::uint8_t>(unit & 0xFFU), static_cast<std::uint8_t>(unit >> 8U)};
    const std::size_t low = encoding_ == Encoding::Utf16LE ? 0 : 1;
    bytes.push_back(pair[low]);
    bytes.push_back(pair[1 - low]);
  }
}

std::vector<std::size_t> SourceText::ByteOffsets() const {
  std::vector<std::size_t> offsets;
  offsets.reserve(text_.size() + 1);
  if (encoding_ != Encoding::Utf8) {
    for (std::size_t i = 0; i <= text_.size(); ++i) offsets.push_back(2 * i);
    return offsets;
  }
  const std::string_view whole = AsChars(bytes_);
  std::size_t at = 0;
  while (at < whole.size()) {
    const Utf8Sequence sequence = DecodeUtf8(whole.substr(at));
    offsets.insert(offsets.end(), sequence.character < 0x10000 ? 1 : 2, at);
    at += sequence.length;
  }
  offsets.push_back(at);
  return offsets;
}

std::vector<std::uint8_t> SourceText::Edited(std::vector<Edit> edits) const {
  std::ranges::stable_sort(edits, std::less{});
  const std::vector<std::size_t> offsets = ByteOffsets();
  std::vector<std::uint8_t> result;
  std::size_t unit = 0;
  std::size_t copied = 0;  // bytes
  for (const Edit& edit : edits) {
    if (edit.range.begin < unit || edit.range.end < edit.range.begin || edit.range.end > text_.size()) continue;
    const auto begin = bytes_.begin();
    result.insert(result.end(), begin + static_cast<std::ptrdiff_t>(copied),
                  begin + static_cast<std::ptrdiff_t>(offsets[edit.range.begin]));
    AppendEncoded(result, edit.text);
    unit = edit.range.end;
    copied = offsets[unit];
  }
  result.insert(result.end(), bytes_.begin() + static_cast<std::ptrdiff_t>(copied), bytes_.end());
  return result;
}

}  // namespace qen::formats
