#include "definitions/item_writer.h"

#include "definitions/line_writer.h"
#include "engine/bag_entry.h"
#include "engine/font_desc.h"
#include "engine/gui_widgets.h"
#include "engine/item_info.h"
#include "widgets/list.h"

namespace qen {
namespace {

std::int32_t Signed(std::uint32_t value) { return static_cast<std::int32_t>(value); }

void WriteMessages(LineWriter& out, const ItemInfo& info, StringView indent) {
  for (const auto& record : info.messages) out.Line(indent, u" message ", record->text);
}

void WriteInfo(LineWriter& out, ICGUIObject& widget) {
  const ItemInfo& info = *widget.info;
  out.Line(u"\t tooltip ", info.tooltip);
  out.Line(u"\t id ", widget.GetId());
  out.Line(u"\t visible ", Signed(info.visible));
  out.Line(u"\t disabled ", Signed(info.disabled));
  out.Line(u"\t min ", info.min);
  out.Line(u"\t max ", info.max);
  out.Line(u"\t position ", info.position);
  out.Line(u"\t checked ", Signed(info.checked));
  WriteMessages(out, info, u"\t");
}

void WriteEntries(LineWriter& out, CGUIList& list) {
  out.Line(u"\t maxselect ", list.maxSelect);
  for (std::uint32_t i = 0; i < list.GetItemCount(); ++i) {
    const ICGUIItem& entry = *list.GetItem(i);
    out.Line(u"\r\n\t listitem ");
    out.Line(u"\t {");
    out.Line(u"\t\t name  \"", entry.name, u"\"");
    out.Line(u"\t\t textid ", entry.textId);
    out.Line(u"\t\t commentid ", entry.commentId);
    out.Line(u"\t\t tooltip ", entry.info->tooltip);
    WriteMessages(out, *entry.info, u"\t\t");
    out.Line(u"\t }");
  }
}

void WriteText(LineWriter& out, ICGUIText& text) {
  const ICGUIText::Colors& colors = text.GetColors();
  out.Line(u"\t textid ", text.GetTextId());
  out.Line(u"\t centered ", Signed(text.GetCentered()));
  out.Line(u"\t editabled ", Signed(text.GetEditable()));
  out.Line(u"\t maxchars ", text.GetMaxChars());
  out.Line(u"\t color_normal  ", Hex{colors[ICGUIText::kNormal]});
  out.Line(u"\t color_select  ", Hex{colors[ICGUIText::kSelect]});
  out.Line(u"\t color_onmouse  ", Hex{colors[ICGUIText::kOnMouse]});
  out.Line(u"\t color_disabled  ", Hex{colors[ICGUIText::kDisabled]});
  out.Line(u"\t color_shadow ", Hex{colors[ICGUIText::kShadow]});
  out.Line(u"\t color_shadowsel  ", Hex{colors[ICGUIText::kShadowOnMouse]});
  out.Line(u"\t shadowoff ", Fixed{text.GetShadowOffset()});
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
  out.Line(u"font \"", StringView(font.lfFaceName), u"\"");
  out.Line(indent, gap, u"{");
  out.Line(indent, u"\t height ", std::int32_t{font.lfHeight});
  out.Line(indent, u"\t width ", std::int32_t{font.lfWidth});
  out.Line(indent, u"\t weight ", std::int32_t{font.lfWeight});
  out.Line(indent, u"\t italic ", std::int32_t{font.lfItalic});
  out.Line(indent, gap, u"}");
}

void WriteItem(LineWriter& out, ICGUIObject& widget) {
  out.Line(u"item ", widget.info->name);
  out.Line(u"{");
  WriteInfo(out, widget);
  if (auto* list = dynamic_cast<CGUIList*>(&widget)) WriteEntries(out, *list);
  auto* text = widget.text != nullptr ? widget.text : dynamic_cast<ICGUIText*>(&widget);
  if (text != nullptr) WriteText(out, *text);
  if (auto* check = dynamic_cast<ICGUICheckButton*>(&widget)) {
    WriteStateLabel(out, u"b_checked", check->GetCheckedButton());
    WriteStateLabel(out, u"b_unchecked", check->GetUncheckedButton());
  }
  out.Line(u"}\r\n");
}

void WriteSlot(LineWriter& out, ICGUIDummy& quad) {
  out.Line(u"item ", quad.info->name);
  out.Line(u"{");
  out.Line(u"\t tooltip ", quad.info->tooltip);
  out.Line(u"\t id ", quad.GetId());
  out.Line(u"\t scale ", Fixed{quad.GetScale()});
  out.Line(u"\t alpha ", quad.GetAlpha());
  out.Line(u"\t active ", quad.GetActive());
  out.Line(u"\t texture ", quad.GetBagRecord().texture);
  out.Line(u"}\r\n");
}

}  // namespace qen
