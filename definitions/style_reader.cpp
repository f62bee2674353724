#include "definitions/style_reader.h"

#include "definitions/definition_text.h"
#include "formats/definition_words.h"

namespace qen {
namespace {

namespace word = formats::word;

}  // namespace

void ReadStyle(const String& text, StyleSettings& style) {
  DefinitionPass pass(text);
  CGUIParser& parser = pass.parser;
  for (String token = parser.NextToken(); !token.empty(); token = parser.NextToken()) {
    if (token == word::kColorNormal) {
      style.color = parser.ReadHex();
    } else if (token == word::kFont) {
      parser.ReadFontBlock(style.font);
    } else if (token == word::kTexture) {
      style.texture = parser.NextToken();
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
