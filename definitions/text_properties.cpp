#include "definitions/text_properties.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "definitions/gui_parser.h"
#include "engine/gui_widgets.h"
#include "formats/definition_words.h"

namespace qen {
namespace {

namespace word = formats::word;

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
    {word::kTextId, ReadNumber<std::int32_t, &ICGUIText::GetTextId>},
    {word::kCentered, ReadNumber<std::uint32_t, &ICGUIText::GetCentered>},
    {word::kEditabled, ReadNumber<std::uint32_t, &ICGUIText::GetEditable>},
    {word::kMaxChars, ReadNumber<std::int32_t, &ICGUIText::GetMaxChars>},
    {word::kShadowOff, ReadShadowOffset},
    {word::kColorNormal, ReadColor<ICGUIText::kNormal>},
    {word::kColorSelect, ReadColor<ICGUIText::kSelect>},
    {word::kColorOnMouse, ReadColor<ICGUIText::kOnMouse>},
    {word::kColorDisabled, ReadColor<ICGUIText::kDisabled>},
    {word::kColorShadow, ReadColor<ICGUIText::kShadow>},
    {word::kColorShadowSel, ReadColor<ICGUIText::kShadowOnMouse>},
    {word::kFont, ReadFont},
}};
static_assert(formats::AreRowsOf(kTextKeywords, formats::kText));

}  // namespace

bool ReadTextProperty(CGUIParser& parser, StringView keyword, ICGUIText* text) {
  const auto* found = std::find_if(kTextKeywords.begin(), kTextKeywords.end(),
                                   [keyword](const TextKeyword& candidate) { return candidate.word == keyword; });
  if (found == kTextKeywords.end()) return false;
  found->read(parser, text);
  return true;
}

}  // namespace qen
