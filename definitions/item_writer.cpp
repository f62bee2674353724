#include "definitions/item_writer.h"

#include "definitions/line_writer.h"
#include "engine/bag_entry.h"
#include "engine/font_desc.h"
#include "engine/gui_widgets.h"
#include "engine/item_info.h"
#include "formats/definition_words.h"
#include "widgets/list.h"

namespace qen {
namespace {

namespace word = formats::word;

std::int32_t Signed(std::uint32_t value) { return static_cast<std::int32_t>(value); }

void WriteMessages(LineWriter& out, const ItemInfo& info, StringView indent) {
  for (const auto& record : info.messages) out.Line(indent, u" ", word::kMessage, u" ", record->text);
}

void WriteInfo(LineWriter& out, ICGUIObject& widget) {
  const ItemInfo& info = *widget.info;
  out.Line(u"\t ", word::kTooltip, u" ", info.tooltip);
  out.Line(u"\t ", word::kId, u" ", widget.GetId());
  out.Line(u"\t ", word::kVisible, u" ", Signed(info.visible));
  out.Line(u"\t ", word::kDisabled, u" ", Signed(info.disabled));
  out.Line(u"\t ", word::kMin, u" ", info.min);
  out.Line(u"\t ", word::kMax, u" ", info.max);
  out.Line(u"\t ", word::kPosition, u" ", info.position);
  out.Line(u"\t ", word::kChecked, u" ", Signed(info.checked));
  WriteMessages(out, info, u"\t");
}

void WriteEntries(LineWriter& out, CGUIList& list) {
  out.Line(u"\t ", word::kMaxSelect, u" ", list.maxSelect);
  for (std::uint32_t i = 0; i < list.GetItemCount(); ++i) {
    const ICGUIItem& entry = *list.GetItem(i);
    out.Line(u"\r\n\t ", word::kListItem, u" ");
    out.Line(u"\t {");
    out.Line(u"\t\t ", word::kName, u"  \"", entry.name, u"\"");
    out.Line(u"\t\t ", word::kTextId, u" ", entry.textId);
    out.Line(u"\t\t ", word::kCommentId, u" ", entry.commentId);
    out.Line(u"\t\t ", word::kTooltip, u" ", entry.info->tooltip);
    WriteMessages(out, *entry.info, u"\t\t");
    out.Line(u"\t }");
  }
}

void WriteText(LineWriter& out, ICGUIText& text) {
  const ICGUIText::Colors& colors = text.GetColors();
  out.Line(u"\t ", word::kTextId, u" ", text.GetTextId());
  out.Line(u"\t ", word::kCentered, u" ", Signed(text.GetCentered()));
  out.Line(u"\t ", word::kEditabled, u" ", Signed(text.GetEditable()));
  out.Line(u"\t ", word::kMaxChars, u" ", text.GetMaxChars());
  out.Line(u"\t ", word::kColorNormal, u"  ", Hex{colors[ICGUIText::kNormal]});
  out.Line(u"\t ", word::kColorSelect, u"  ", Hex{colors[ICGUIText::kSelect]});
  out.Line(u"\t ", word::kColorOnMouse, u"  ", Hex{colors[ICGUIText::kOnMouse]});
  out.Line(u"\t ", word::kColorDisabled, u"  ", Hex{colors[ICGUIText::kDisabled]});
  out.Line(u"\t ", word::kColorShadow, u" ", Hex{colors[ICGUIText::kShadow]});
  out.Line(u"\t ", word::kColorShadowSel, u"  ", Hex{colors[ICGUIText::kShadowOnMouse]});
  out.Line(u"\t ", word::kShadowOff, u" ", Fixed{text.GetShadowOffset()});
  out.Add(u"\r\n");
  out.Add(u"\t ");
  WriteFont(out, text.GetFontDesc(), u"\t");
}

void WriteStateLabel(LineWriter& out, StringView keyword, const ICGUIButton* button) {
  if (button == nullptr || button->text == nullptr) return;
  out.Line(u"\t ", keyword);
  out.Line(u"\t {");
  WriteText(out, *button->text);
  out.Line(u"\t }");
}

}  // namespace

void WriteFont(LineWriter& out, const LOGFONTW& font, StringView indent) {
  const StringView gap = indent.empty() ? u"" : u" ";
  out.Line(word::kFont, u" \"", StringView(font.lfFaceName), u"\"");
  out.Line(indent, gap, u"{");
  out.Line(indent, u"\t ", word::kHeight, u" ", std::int32_t{font.lfHeight});
  out.Line(indent, u"\t ", word::kWidth, u" ", std::int32_t{font.lfWidth});
  out.Line(indent, u"\t ", word::kWeight, u" ", std::int32_t{font.lfWeight});
  out.Line(indent, u"\t ", word::kItalic, u" ", std::int32_t{font.lfItalic});
  out.Line(indent, gap, u"}");
}

void WriteItem(LineWriter& out, ICGUIObject& widget) {
  out.Line(word::kItem, u" ", widget.info->name);
  out.Line(u"{");
  WriteInfo(out, widget);
  if (auto* list = dynamic_cast<CGUIList*>(&widget)) WriteEntries(out, *list);
  auto* text = widget.text != nullptr ? widget.text : dynamic_cast<ICGUIText*>(&widget);
  if (text != nullptr) WriteText(out, *text);
  if (auto* check = dynamic_cast<ICGUICheckButton*>(&widget)) {
    WriteStateLabel(out, word::kBChecked, check->GetCheckedButton());
    WriteStateLabel(out, word::kBUnchecked, check->GetUncheckedButton());
  }
  out.Line(u"}\r\n");
}

void WriteSlot(LineWriter& out, ICGUIDummy& quad) {
  out.Line(word::kItem, u" ", quad.info->name);
  out.Line(u"{");
  out.Line(u"\t ", word::kTooltip, u" ", quad.info->tooltip);
  out.Line(u"\t ", word::kId, u" ", quad.GetId());
  out.Line(u"\t ", word::kScale, u" ", Fixed{quad.GetScale()});
  out.Line(u"\t ", word::kAlpha, u" ", quad.GetAlpha());
  out.Line(u"\t ", word::kActive, u" ", quad.GetActive());
  out.Line(u"\t ", word::kTexture, u" ", quad.GetBagRecord().texture);
  out.Line(u"}\r\n");
}

}  // namespace qen
