#include "definitions/gui_parser.h"

#include <array>

#include "engine/string_converter.h"
#include "formats/definition_syntax.h"
#include "formats/definition_words.h"

namespace qen {
namespace {

struct FontKeyword {
  StringView word;
  void (*store)(LOGFONTW& font, std::int32_t value);
};

constexpr std::array<FontKeyword, 4> kFontKeywords{{
    {formats::word::kHeight, [](LOGFONTW& font, std::int32_t value) { font.lfHeight = value; }},
    {formats::word::kWidth, [](LOGFONTW& font, std::int32_t value) { font.lfWidth = value; }},
    {formats::word::kWeight, [](LOGFONTW& font, std::int32_t value) { font.lfWeight = value; }},
    {formats::word::kItalic,
     [](LOGFONTW& font, std::int32_t value) { font.lfItalic = static_cast<std::uint8_t>(value & 0xFF); }},
}};
static_assert(formats::AreRowsOf(kFontKeywords, formats::kFont));

}  // namespace

CGUIParser::CGUIParser(std::basic_istream<Char>& input) : Parser(input, formats::kSeparators) {}

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
  for (String token = NextToken(); !token.empty() && token != formats::kClose; token = NextToken()) {
    for (const FontKeyword& keyword : kFontKeywords) {
      if (token == keyword.word) keyword.store(font, ReadInt());
    }
  }
  return !face.empty();
}

}  // namespace qen
