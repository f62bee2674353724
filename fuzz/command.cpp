// Commands: each line of the input is carried by every widget that sends commands, and by an entry of the list.
#include <algorithm>

#include "base/utf.h"
#include "engine/gui_widgets.h"
#include "engine/item_info.h"
#include "fuzz/stage.h"

namespace qen::fuzz {
namespace {

constexpr std::size_t kCommands = 16;  // of one widget

std::vector<String> Lines(Input input) {
  const String text = base::ToUtf16(std::string(input.begin(), input.end()));
  std::vector<String> lines;
  for (std::size_t start = 0; start <= text.size() && lines.size() < kCommands;) {
    const std::size_t end = std::min(text.find(u'\n', start), text.size());
    lines.push_back(text.substr(start, end - start));
    start = end + 1;
  }
  return lines;
}

void Carry(ICGUIObject& widget, const std::vector<String>& commands) {
  widget.info->messages.clear();
  for (const String& command : commands) {
    auto record = std::make_unique<GuiMessage>();
    record->text = command;
    record->source = &widget;
    widget.info->messages.push_back(std::move(record));
  }
}

}  // namespace

void Try(Input input) {
  Stage stage;
  stage.listener.onRecord = [](std::uint32_t, GuiMessage& record) {
    if (record.command == u"play") record.handled = 1;
  };
  stage.Load();
  stage.Frame(1.0);  // the entrance is over
  const std::vector<String> commands = Lines(input);
  const std::vector<ICGUIObject*> widgets = stage.Widgets();
  for (ICGUIObject* widget : widgets) {
    Carry(*widget, commands);
    auto* list = dynamic_cast<ICGUIList*>(widget);
    for (std::uint32_t i = 0; list != nullptr && i < list->GetItemCount(); ++i) Carry(*list->GetItem(i), commands);
  }
  for (ICGUIObject* widget : widgets) {
    stage.Click(*widget);
    stage.Frame(0.4);  // shorter than an animation: some commands wait
    stage.Draw();
  }
  stage.Frame(1.0);
}

}  // namespace qen::fuzz
