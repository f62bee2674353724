#include "definitions/item_reader.h"

#include <algorithm>
#include <array>
#include <memory>

#include "definitions/gui_parser.h"
#include "definitions/text_properties.h"
#include "engine/bag_entry.h"
#include "engine/gui_widgets.h"
#include "engine/item_info.h"
#include "formats/definition_syntax.h"
#include "formats/definition_words.h"
#include "widgets/list.h"

namespace qen {
namespace {

namespace word = formats::word;

ICGUIText* TextTarget(ICGUIObject* widget) {
  if (widget == nullptr || widget->text != nullptr) return widget != nullptr ? widget->text : nullptr;
  return dynamic_cast<ICGUIText*>(widget);
}

void AppendMessage(ItemInfo& info, ICGUIObject* source, String text) {
  auto record = std::make_unique<GuiMessage>();
  record->text = std::move(text);
  record->source = source;
  info.messages.push_back(std::move(record));
}

// A number of the widget's record.
template <class Number, Number ItemInfo::*field>
void ReadField(CGUIParser& parser, ICGUIObject* widget) {
  const std::int32_t value = parser.ReadInt();
  if (widget != nullptr) widget->info->*field = static_cast<Number>(value);
}

template <void (ICGUIObject::*set)(std::uint32_t)>
void ReadFlag(CGUIParser& parser, ICGUIObject* widget) {
  const std::int32_t value = parser.ReadInt();
  if (widget != nullptr) (widget->*set)(static_cast<std::uint32_t>(value));
}

// A number that only quads have.
template <std::int32_t& (ICGUIDummy::*access)()>
void ReadQuadNumber(CGUIParser& parser, ICGUIObject* widget) {
  const std::int32_t value = parser.ReadInt();
  if (auto* quad = dynamic_cast<ICGUIDummy*>(widget)) (quad->*access)() = value;
}

void ReadScale(CGUIParser& parser, ICGUIObject* widget) {
  const float value = parser.ReadFloat();
  if (auto* quad = dynamic_cast<ICGUIDummy*>(widget)) quad->GetScale() = value;
}

void ReadTexture(CGUIParser& parser, ICGUIObject* widget) {
  auto* quad = dynamic_cast<ICGUIDummy*>(widget);
  if (quad == nullptr) return;  // the value is looked at as a keyword then
  quad->GetBagRecord().texture = parser.ReadString();
  quad->LoadTexture();
}

void ReadMessage(CGUIParser& parser, ICGUIObject* widget) {
  String text = parser.ReadString();
  if (widget != nullptr) AppendMessage(*widget->info, widget, std::move(text));
}

void ReadMaxSelect(CGUIParser& parser, ICGUIObject* widget) {
  const std::int32_t value = parser.ReadInt();
  if (auto* list = dynamic_cast<CGUIList*>(widget)) list->maxSelect = value;
}

void ReadId(CGUIParser& parser, ICGUIObject* widget) {
  const std::int32_t value = parser.ReadInt();
  if (widget != nullptr) widget->GetId() = value;
}

// One entry of a list, or what is read for a widget that is none.
struct EntryTarget {
  ICGUIList* list;
  ICGUIItem* entry;
};

struct EntryKeyword {
  StringView word;
  void (*read)(CGUIParser& parser, const EntryTarget& target);
};

constexpr std::array<EntryKeyword, 5> kEntryKeywords{{
    {word::kName,
     [](CGUIParser& parser, const EntryTarget& target) {
       String value = parser.ReadString();
       if (target.entry != nullptr) target.entry->name = std::move(value);
     }},
    {word::kTextId,
     [](CGUIParser& parser, const EntryTarget& target) {
       const std::int32_t value = parser.ReadInt();
       if (target.entry != nullptr) target.entry->textId = value;
     }},
    {word::kCommentId,
     [](CGUIParser& parser, const EntryTarget& target) {
       const std::int32_t value = parser.ReadInt();
       if (target.entry != nullptr) target.entry->commentId = value;
     }},
    {word::kTooltip,
     [](CGUIParser& parser, const EntryTarget& target) {
       const std::int32_t value = parser.ReadInt();
       if (target.entry != nullptr) target.entry->info->tooltip = value;
     }},
    {word::kMessage,
     [](CGUIParser& parser, const EntryTarget& target) {
       String value = parser.ReadString();
       if (target.entry != nullptr) AppendMessage(*target.entry->info, target.list, std::move(value));
     }},
}};
static_assert(formats::AreRowsOf(kEntryKeywords, formats::kEntry));

void ReadListItem(CGUIParser& parser, ICGUIObject* widget) {
  auto* list = dynamic_cast<ICGUIList*>(widget);
  const EntryTarget target{list, list != nullptr ? list->AddItem() : nullptr};
  for (String token = parser.NextToken(); !token.empty() && token != formats::kClose; token = parser.NextToken()) {
    for (const EntryKeyword& keyword : kEntryKeywords) {
      if (token == keyword.word) keyword.read(parser, target);
    }
  }
}

template <ICGUIButton* (ICGUICheckButton::*side)()>
void ReadStateLabel(CGUIParser& parser, ICGUIObject* widget) {
  auto* check = dynamic_cast<ICGUICheckButton*>(widget);
  const ICGUIButton* button = check != nullptr ? (check->*side)() : nullptr;
  ICGUIText* label = button != nullptr ? button->text : nullptr;
  for (String token = parser.NextToken(); !token.empty() && token != formats::kClose; token = parser.NextToken()) {
    ReadTextProperty(parser, token, label);
  }
}

struct ItemKeyword {
  StringView word;
  void (*read)(CGUIParser& parser, ICGUIObject* widget);
};

// No keyword here is one of a text as well, so the order in which the two tables are tried does not matter.
constexpr std::array<ItemKeyword, 17> kItemKeywords{{
    {word::kTooltip, ReadField<std::int32_t, &ItemInfo::tooltip>},
    {word::kVisible, ReadFlag<&ICGUIObject::SetVisible>},
    {word::kDisabled, ReadFlag<&ICGUIObject::SetDisabled>},
    {word::kMin, ReadField<std::int32_t, &ItemInfo::min>},
    {word::kMax, ReadField<std::int32_t, &ItemInfo::max>},
    {word::kPosition, ReadField<std::int32_t, &ItemInfo::position>},
    {word::kChecked, ReadField<std::uint32_t, &ItemInfo::checked>},
    {word::kMessage, ReadMessage},
    {word::kMaxSelect, ReadMaxSelect},
    {word::kScale, ReadScale},
    {word::kAlpha, ReadQuadNumber<&ICGUIDummy::GetAlpha>},
    {word::kActive, ReadQuadNumber<&ICGUIDummy::GetActive>},
    {word::kTexture, ReadTexture},
    {word::kId, ReadId},
    {word::kListItem, ReadListItem},
    {word::kBChecked, ReadStateLabel<&ICGUICheckButton::GetCheckedButton>},
    {word::kBUnchecked, ReadStateLabel<&ICGUICheckButton::GetUncheckedButton>},
}};
static_assert(formats::AreRowsOf(kItemKeywords, formats::kItem));

}  // namespace

void ReadItemBlock(CGUIParser& parser, ICGUIObject* widget) {
  ICGUIText* text = TextTarget(widget);
  for (String token = parser.NextToken(); !token.empty() && token != formats::kClose; token = parser.NextToken()) {
    const auto* found = std::find_if(kItemKeywords.begin(), kItemKeywords.end(),
                                     [&token](const ItemKeyword& candidate) { return candidate.word == token; });
    if (found != kItemKeywords.end()) {
      found->read(parser, widget);
    } else {
      ReadTextProperty(parser, token, text);
    }
  }
}

}  // namespace qen
