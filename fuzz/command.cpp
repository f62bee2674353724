// Commands: each line of the input is carried by a widget or an entry of the list, in turn.
#include "base/utf.h"
#include "commands/dispatch.h"
#include "engine/string_converter.h"
#include "fuzz/stage.h"

namespace qen::fuzz {
namespace {

constexpr std::size_t kCommands = 16;

class CommandStage final : public Stage {
 public:
  CommandStage();

  void CarryOut(const std::vector<String>& commands);

 private:
  void Restore();

  std::vector<ICGUIObject*> carriers_;
  std::vector<std::pair<ICGUIText*, std::int32_t>> textIds_;
};

CommandStage::CommandStage() {
  AddFiles(kEverything);
  Load();
  for (ICGUIObject* widget : Widgets()) {
    carriers_.push_back(widget);
    auto* text = widget->text != nullptr ? widget->text : dynamic_cast<ICGUIText*>(widget);
    if (text != nullptr) textIds_.emplace_back(text, text->GetTextId());
    auto* list = dynamic_cast<ICGUIList*>(widget);
    for (std::uint32_t i = 0; list != nullptr && i < list->GetItemCount(); ++i) carriers_.push_back(list->GetItem(i));
  }
  Restore();
}

void CommandStage::CarryOut(const std::vector<String>& commands) {
  for (std::size_t i = 0; i < commands.size(); ++i) Say(*carriers_[i % carriers_.size()], {commands[i]});
  for (ICGUIObject* carrier : carriers_) DispatchItemCommands(message::kCommand, *carrier);
  Deliver();
  // Those wait whose page plays an animation, until it is over.
  for (std::uint32_t page = 0; page < gui->GetPageCount(); ++page) gui->GetPage(page)->StopAnims();
  Deliver();
  Restore();
}

void CommandStage::Restore() {
  for (ICGUIObject* carrier : carriers_) {
    ItemInfo& info = *carrier->info;
    info.messages.clear();
    info.visible = 1;
    info.disabled = info.checked = 0;
  }
  for (const auto& [text, id] : textIds_) text->SetTextId(id);
  gui->Reset();
  gui->ClearUndo();
  for (std::uint32_t page = 0; page < gui->GetPageCount(); ++page) {
    gui->GetPage(page)->StopAnims();
    gui->GetPage(page)->Disable(true);
  }
  ShowOnly(0);
  ForgetRecords();
}

}  // namespace

void Try(Input input) {
  std::vector<String> lines = SplitString(base::ToUtf16(std::string(input.begin(), input.end())), u"\n", 0);
  if (lines.size() > kCommands) lines.resize(kCommands);
  Kept<CommandStage>().CarryOut(lines);
}

}  // namespace qen::fuzz
