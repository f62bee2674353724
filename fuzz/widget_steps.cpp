// What a host does to widgets: through their records, and through the operations of their kind.
#include <algorithm>
#include <cmath>
#include <initializer_list>

#include "engine/aabb.h"
#include "engine/gui_widgets.h"
#include "engine/item_info.h"
#include "engine/matrix.h"
#include "fuzz/steps.h"

namespace qen::fuzz {
namespace {

// Changes one field of the next widget of that kind: the one with that digit, the last one for any other byte.
template <class Kind>
void ChangeField(Play& play, std::initializer_list<void (*)(Kind&, std::int32_t)> changes) {
  auto* widget = play.WidgetOf<Kind>();
  if (widget == nullptr) return;
  const std::size_t field = static_cast<std::uint8_t>(play.bytes.Next() - '0');
  changes.begin()[std::min(field, changes.size() - 1)](*widget, play.bytes.Number());
}

std::uint32_t Flag(std::int32_t number) { return static_cast<std::uint32_t>(number); }

void SetRecord(Play& play) {
  ChangeField<ICGUIObject>(play,
                           {
                               [](ICGUIObject& widget, std::int32_t number) { widget.SetVisible(Flag(number)); },
                               [](ICGUIObject& widget, std::int32_t number) { widget.SetDisabled(Flag(number)); },
                               [](ICGUIObject& widget, std::int32_t number) { widget.info->checked = Flag(number); },
                               [](ICGUIObject& widget, std::int32_t number) { widget.info->position = number; },
                               [](ICGUIObject& widget, std::int32_t number) { widget.info->max = number; },
                               [](ICGUIObject& widget, std::int32_t number) { widget.info->min = number; },
                               [](ICGUIObject& widget, std::int32_t number) { widget.SetShowBox(Flag(number)); },
                               [](ICGUIObject& widget, std::int32_t number) { widget.info->tooltip = number; },
                               [](ICGUIObject& widget, std::int32_t number) { widget.ShowNodes(Flag(number)); },
                               [](ICGUIObject& widget, std::int32_t number) { widget.GetId() = number; },
                           });
}

void PlaceWidget(Play& play) {
  ICGUIObject* widget = play.Widget();
  if (widget == nullptr) return;
  Matrix4x4 matrix = Matrix4x4::Identity;
  AABB box;
  widget->GetMatrix(matrix);
  widget->GetAABB(box);
  const std::int32_t number = play.bytes.Number();
  matrix.m[number & 3][0] = number == 7 ? NAN : static_cast<float>(number);
  widget->SetMatrix(matrix);
}

void AddItem(Play& play) {
  auto* list = play.WidgetOf<ICGUIList>();
  if (list == nullptr) return;
  ICGUIItem* item = list->AddItem();
  item->textId = play.bytes.Number();
  item->displayText = String(play.bytes.Next() % 64, u'i');
}

void CopyItem(Play& play) {
  auto* list = play.WidgetOf<ICGUIList>();
  if (list != nullptr) list->AddItemCopy(list->GetItem(play.bytes.Next() - '0'));
}

void RemoveItem(Play& play) {
  auto* list = play.WidgetOf<ICGUIList>();
  if (list == nullptr) return;
  const std::uint32_t index = play.bytes.Next() - '0';
  if (play.bytes.Next() == '0') {
    list->RemoveItem(list->GetItem(index));
  } else {
    list->RemoveItemAt(index);
  }
}

void SelectItem(Play& play) {
  auto* list = play.WidgetOf<ICGUIList>();
  if (list == nullptr) return;
  ICGUIItem* item = list->GetItem(play.bytes.Next() - '0');
  if (item != nullptr && play.bytes.Next() == '0') {
    item->selected = item->selected == 0 ? 1 : 0;
  } else {
    list->SelectItem(item);
  }
  std::vector<std::uint32_t> selected;
  list->GetSelectedIndices(selected);
}

void ClearList(Play& play) {
  if (auto* list = play.WidgetOf<ICGUIList>()) list->Clear();
}

void ChangeText(Play& play) {
  ChangeField<ICGUIText>(
      play,
      {
          [](ICGUIText& text, std::int32_t number) { text.SetTextId(number); },
          [](ICGUIText& text, std::int32_t number) { text.SetNumber(number); },
          [](ICGUIText& text, std::int32_t number) { text.SetText(String(Flag(number) & 0x1FF, u'\n').c_str()); },
          [](ICGUIText& text, std::int32_t number) { text.SetText(std::string(Flag(number) & 0x1FF, '\xFF').c_str()); },
          [](ICGUIText& text, std::int32_t number) { text.GetEditable() = Flag(number); },
          [](ICGUIText& text, std::int32_t number) { text.GetMaxChars() = number; },
          [](ICGUIText& text, std::int32_t number) { text.GetShadowOffset() = static_cast<float>(number); },
          [](ICGUIText& text, std::int32_t number) { text.SetAlpha(Flag(number)); },
          [](ICGUIText& text, std::int32_t number) {
            text.GetFontDesc().lfHeight = number;
            text.RecreateFont();
          },
          [](ICGUIText& text, std::int32_t number) { text.GetCentered() = Flag(number); },
      });
}

void ChangeSlot(Play& play) {
  ChangeField<ICGUIDummy>(
      play, {
                [](ICGUIDummy& slot, std::int32_t number) { slot.GetActive() = number; },
                [](ICGUIDummy& slot, std::int32_t number) { slot.GetScale() = static_cast<float>(number); },
                [](ICGUIDummy& slot, std::int32_t number) { slot.GetAlpha() = number; },
                [](ICGUIDummy& slot, std::int32_t number) { slot.SetColor(Flag(number), number == 1); },
                [](ICGUIDummy& slot, std::int32_t) { slot.LoadTexture(); },
            });
}

constexpr std::array<Step, 9> kSteps{{
    {'e', SetRecord},
    {'E', PlaceWidget},
    {'+', AddItem},
    {'*', CopyItem},
    {'-', RemoveItem},
    {'=', SelectItem},
    {'C', ClearList},
    {'T', ChangeText},
    {'D', ChangeSlot},
}};

}  // namespace

std::span<const Step> WidgetSteps() { return kSteps; }

}  // namespace qen::fuzz
