// What a host does to widgets: through their records, and through the operations of their kind.
#include <cmath>

#include "engine/aabb.h"
#include "engine/gui_widgets.h"
#include "engine/item_info.h"
#include "engine/matrix.h"
#include "fuzz/steps.h"

namespace qen::fuzz {
namespace {

void SetRecord(Play& play) {
  ICGUIObject* widget = play.Widget();
  if (widget == nullptr) return;
  ItemInfo& info = *widget->info;
  const std::uint8_t field = play.bytes.Next();
  const std::int32_t number = play.bytes.Number();
  const auto flag = static_cast<std::uint32_t>(number);
  switch (field - '0') {
    case 0:
      widget->SetVisible(flag);
      break;
    case 1:
      widget->SetDisabled(flag);
      break;
    case 2:
      info.checked = flag;
      break;
    case 3:
      info.position = number;
      break;
    case 4:
      info.max = number;
      break;
    case 5:
      info.min = number;
      break;
    case 6:
      widget->SetShowBox(flag);
      break;
    case 7:
      info.tooltip = number;
      break;
    case 8:
      widget->ShowNodes(flag);
      break;
    default:
      widget->GetId() = number;
  }
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
  auto* text = play.WidgetOf<ICGUIText>();
  if (text == nullptr) return;
  const std::uint8_t field = play.bytes.Next();
  const std::int32_t number = play.bytes.Number();
  switch (field - '0') {
    case 0:
      text->SetTextId(number);
      break;
    case 1:
      text->SetNumber(number);
      break;
    case 2:
      text->SetText(String(static_cast<std::size_t>(number & 0x1FF), u'\n').c_str());
      break;
    case 3:
      text->SetText(std::string(static_cast<std::size_t>(number & 0x1FF), '\xFF').c_str());
      break;
    case 4:
      text->GetEditable() = static_cast<std::uint32_t>(number);
      break;
    case 5:
      text->GetMaxChars() = number;
      break;
    case 6:
      text->GetShadowOffset() = static_cast<float>(number);
      break;
    case 7:
      text->SetAlpha(static_cast<std::uint32_t>(number));
      break;
    case 8:
      text->GetFontDesc().lfHeight = number;
      text->RecreateFont();
      break;
    default:
      text->GetCentered() = static_cast<std::uint32_t>(number);
  }
}

void ChangeSlot(Play& play) {
  auto* slot = play.WidgetOf<ICGUIDummy>();
  if (slot == nullptr) return;
  const std::uint8_t field = play.bytes.Next();
  const std::int32_t number = play.bytes.Number();
  switch (field - '0') {
    case 0:
      slot->GetActive() = number;
      break;
    case 1:
      slot->GetScale() = static_cast<float>(number);
      break;
    case 2:
      slot->GetAlpha() = number;
      break;
    case 3:
      slot->SetColor(static_cast<std::uint32_t>(number), number == 1);
      break;
    default:
      slot->LoadTexture();
  }
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
