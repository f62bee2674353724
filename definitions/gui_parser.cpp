#include "definitions/gui_parser.h"

#include <array>

#include "engine/string_converter.h"

namespace qen {
namespace {

struct FontKeyword {
  StringView word;
  void (*store)(LOGFONTW& font, std::int32_t value);
};

constexpr std::array<FontKeyword, 4> kFontKeywords{{
    {u"height", [](LOGFONTW& font, std::int32_t value) { font.lfHeight = value; }},
    {u"width", [](LOGFONTW& font, std::int32_t value) { font.lfWidth = value; }},
    {u"weight", [](LOGFONTW& font, std::int32_t value) { font.lfWeight = value; }},
    {u"italic", [](LOGFONTW& font, std::int32_t value) { font.lfItalic = static_cast<std::uint8_t>(value & 0xFF); }},
}};

}  // namespace

CGUIParser::CGUIParser(std::basic_istream<Char>& input) : Parser(input, u" \t\n\r;") {}

String CGUIParser::NextToken() { return nextlow(false); }

template <class Value>
Value CGUIParser::Read(Value (*convert)(StringView), Value atEnd) {
  const String token = NextToken();
  if (!token.empty()) return convert(token);
  ok = false;
  return atEnd;
}

std::int32_t CGUIParser::ReadInt() { return Read<std::int32_t>(StringConverter::ParseInt, -1); }

float CGUIParser::ReadFloat() { return Read<float>(StringConverter::ParseFloat, -1.0F); }

std::uint32_t CGUIParser::ReadHex() { return Read<std::uint32_t>(StringConverter::ParseHex, 0xFFFFFFFF); }

String CGUIParser::ReadString() {
  String token = NextToken();
  if (token.empty()) ok = false;
  return token;
}

bool CGUIParser::ReadFontBlock(LOGFONTW& font) {
  const String face = NextToken();
  font.SetFaceName(face);
  for (String token = NextToken(); !token.empty() && token != u"}"; token = NextToken()) {
    for (const FontKeyword& keyword : kFontKeywords) {
      if (token == keyword.word) keyword.store(font, ReadInt());
    }
  }
  return !face.empty();
}

}  // namespace qen
