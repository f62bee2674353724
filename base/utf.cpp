#include "base/utf.h"

#include "formats/utf8.h"

namespace qen::base {

std::string ToUtf8(StringView text) {
  std::string out;
  out.reserve(text.size());
  formats::AppendUtf8(out, text);
  return out;
}

String ToUtf16(std::string_view text) {
  String out;
  out.reserve(text.size());
  while (!text.empty()) {
    const formats::Utf8Sequence sequence = formats::DecodeUtf8(text);
    formats::AppendUtf16(out, sequence.character);
    text.remove_prefix(sequence.length);
  }
  return out;
}

std::optional<WrongByte> FindWrongByte(std::string_view text) {
  WrongByte at;
  while (!text.empty()) {
    const formats::Utf8Sequence sequence = formats::DecodeUtf8(text);
    at.byte = static_cast<std::uint8_t>(text[0]);
    if (sequence.isWrong) return at;
    ++at.column;
    if (text[0] == '\n') at = {.line = at.line + 1};
    text.remove_prefix(sequence.length);
  }
  return std::nullopt;
}

}  // namespace qen::base
