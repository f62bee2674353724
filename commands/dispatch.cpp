#include "commands/dispatch.h"

#include <algorithm>
#include <array>

#include "commands/message_collector.h"
#include "engine/gui_widgets.h"
#include "engine/item_info.h"
#include "engine/string_converter.h"
#include "formats/command_words.h"

namespace qen {
namespace {

bool TakesState(StringView word) {
  constexpr std::array kWords{command::kDisable, command::kShow, command::kHide};
  return std::find(kWords.begin(), kWords.end(), word) != kWords.end();
}

std::int32_t CommandValue(StringView word, const ICGUIObject& widget) {
  const auto* item = dynamic_cast<const ICGUIItem*>(&widget);
  const std::uint32_t state = item != nullptr ? item->selected : widget.info->checked;
  if (TakesState(word)) return static_cast<std::int32_t>(state);
  if (word != command::kSetText || state == 0) return 0;
  if (item != nullptr) return item->commentId;
  return widget.text != nullptr ? widget.text->GetTextId() : 0;
}

}  // namespace

void DispatchItemCommands(std::uint32_t id, ICGUIObject& widget) {
  if (widget.info == nullptr) return;
  for (const auto& record : widget.info->messages) {
    std::vector<String> parts = SplitString(record->text, String(formats::kCommandSeparators), 0);
    parts.resize(2);
    record->command = std::move(parts[0]);
    record->argument = std::move(parts[1]);
    record->value = CommandValue(record->command, widget);
    record->page = widget.GetPage();
    record->origin = 0;
    MessageCollector().Post(id, *record);
  }
}

}  // namespace qen
