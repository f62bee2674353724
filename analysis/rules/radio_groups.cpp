#include <set>
#include <unordered_set>
#include <utility>

#include "analysis/rules/command_list.h"
#include "analysis/words.h"

namespace qen::analysis {
namespace {

class RadioCheck {
 public:
  RadioCheck(const Gui& gui, Findings& findings) : gui_(gui), findings_(findings) {}

  void Note(const Command& command) {
    if (!IsOfGroup(command)) return;
    named_.emplace(command.sender->name, command.argument);
    if (!gui_.widgetsByName.contains(String(command.argument))) unclear_.insert(command.sender->name);
  }

  void Check(const Command& command) {
    if (!IsOfGroup(command) || command.isTold || command.sender->letter != u'c') return;
    const auto others = gui_.widgetsByName.find(String(command.argument));
    if (others == gui_.widgetsByName.end()) return;
    const Widget& other = gui_.At(others->second.front());
    const bool answers = other.letter != u'c' || other.blocks.empty() || other.name == command.sender->name ||
                         unclear_.contains(other.name) || named_.contains({other.name, command.sender->name});
    if (answers) return;
    findings_.Add(Rule::OneSidedRadio, *gui_.pages[command.page].source, command.token,
                  Quoted(other.name) + " does not name " + Quoted(command.sender->name) + " in return");
  }

 private:
  static bool IsOfGroup(const Command& command) {
    return command.sender != nullptr && command.known != nullptr && command.known->word == command::kRadioGroup;
  }

  const Gui& gui_;
  Findings& findings_;
  std::set<std::pair<StringView, StringView>> named_;  // by whom, and who
  std::unordered_set<StringView> unclear_;             // those that name a widget that does not exist
};

}  // namespace

void CheckRadioGroups(const Gui& gui, const std::vector<Command>& commands, Findings& findings) {
  RadioCheck check(gui, findings);
  for (const Command& command : commands) check.Note(command);
  for (const Command& command : commands) check.Check(command);
}

}  // namespace qen::analysis
