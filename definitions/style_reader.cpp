#include "definitions/style_reader.h"

#include "definitions/definition_text.h"

namespace qen {

void ReadStyle(const String& text, StyleSettings& style) {
  DefinitionPass pass(text);
  CGUIParser& parser = pass.parser;
  for (String token = parser.NextToken(); !token.empty(); token = parser.NextToken()) {
    if (token == u"color_normal") {
      style.color = parser.ReadHex();
    } else if (token == u"font") {
      parser.ReadFontBlock(style.font);
    } else if (token == u"texture") {
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
