#include "definitions/text_properties.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "definitions/gui_parser.h"
#include "engine/gui_widgets.h"

namespace qen {
namespace {

void ReadShadowOffset(CGUIParser& parser, ICGUIText* text) {
  const float offset = std::trunc(parser.ReadFloat());
  if (text != nullptr) text->GetShadowOffset() = std::isfinite(offset) ? offset : 0.0F;
}

void ReadFont(CGUIParser& parser, ICGUIText* text) {
  LOGFONTW dropped;
  parser.ok = parser.ReadFontBlock(text != nullptr ? text->GetFontDesc() : dropped);
  if (text != nullptr) text->RecreateFont();
}

template <ICGUIText::ColorIndex index>
void ReadColor(CGUIParser& parser, ICGUIText* text) {
  const std::uint32_t color = parser.ReadHex();
  if (text != nullptr) text->GetColors()[index] = color;
}

// A number that is reached through an accessor of the text.
template <class Number, Number& (ICGUIText::*access)()>
void ReadNumber(CGUIParser& parser, ICGUIText* text) {
  const std::int32_t value = parser.ReadInt();
  if (text != nullptr) (text->*access)() = static_cast<Number>(value);
}

struct TextKeyword {
  StringView word;
  void (*read)(CGUIParser& parser, ICGUIText* text);
};

constexpr std::array<TextKeyword, 12> kTextKeywords{{
    {u"textid", ReadNumber<std::int32_t, &ICGUIText::GetTextId>},
    {u"centered", ReadNumber<std::uint32_t, &ICGUIText::GetCentered>},
    {u"editabled", ReadNumber<std::uint32_t, &ICGUIText::GetEditable>},
    {u"maxchars", ReadNumber<std::int32_t, &ICGUIText::GetMaxChars>},
    {u"shadowoff", ReadShadowOffset},
    {u"color_normal", ReadColor<ICGUIText::kNormal>},
    {u"color_select", ReadColor<ICGUIText::kSelect>},
    {u"color_onmouse", ReadColor<ICGUIText::kOnMouse>},
    {u"color_disabled", ReadColor<ICGUIText::kDisabled>},
    {u"color_shadow", ReadColor<ICGUIText::kShadow>},
    {u"color_shadowsel", ReadColor<ICGUIText::kShadowOnMouse>},
    {u"font", ReadFont},
}};

}  // namespace

bool ReadTextProperty(CGUIParser& parser, StringView keyword, ICGUIText* text) {
  const auto* found = std::find_if(kTextKeywords.begin(), kTextKeywords.end(),
                                   [keyword](const TextKeyword& candidate) { return candidate.word == keyword; });
  if (found == kTextKeywords.end()) return false;
  found->read(parser, text);
  return true;
}

}  // namespace qen
