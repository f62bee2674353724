#include "definitions/style_reader.h"

#include <array>

#include "definitions/definition_text.h"
#include "formats/definition_words.h"

namespace qen {
namespace {

namespace word = formats::word;

struct StyleKey {
  StringView word;
  void (*read)(CGUIParser& parser, StyleSettings& style);
};

constexpr std::array<StyleKey, 3> kStyleKeys{{
    {word::kColorNormal, [](CGUIParser& parser, StyleSettings& style) { style.color = parser.ReadHex(); }},
    {word::kFont, [](CGUIParser& parser, StyleSettings& style) { parser.ReadFontBlock(style.font); }},
    {word::kTexture, [](CGUIParser& parser, StyleSettings& style) { style.texture = parser.NextToken(); }},
}};
static_assert(formats::AreRowsOf(kStyleKeys, formats::kStyle));

}  // namespace

void ReadStyle(const String& text, StyleSettings& style) {
  DefinitionPass pass(text);
  for (String token = pass.parser.NextToken(); !token.empty(); token = pass.parser.NextToken()) {
    for (const StyleKey& key : kStyleKeys) {
      if (token == key.word) key.read(pass.parser, style);
    }
  }
}

LOGFONTW DefaultStyleFont() {
  LOGFONTW font;
  font.SetFaceName(u"Courier");
  font.lfHeight = -18;
  font.lfWidth = 0;
  font.lfWeight = 700;
  font.lfItalic = 0;
  return font;
}

}  // namespace qen
