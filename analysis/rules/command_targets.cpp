#include "analysis/rules/command_list.h"
#include "analysis/rules/name_guesser.h"
#include "analysis/words.h"

namespace qen::analysis {
namespace {

template <class Map>
std::vector<StringView> NamesOf(const Map& map) {
  std::vector<StringView> names;
  names.reserve(map.size());
  for (const auto& [name, place] : map) names.push_back(name);
  return names;
}

class TargetCheck {
 public:
  TargetCheck(const Gui& gui, Findings& findings)
      : gui_(gui),
        findings_(findings),
        isComplete_(IsComplete(gui)),
        pages_(NamesOf(gui.pagesByName)),
        widgets_(NamesOf(gui.widgetsByName)) {}

  void Check(const Command& command) {
    if (command.argument.empty() || command.known == nullptr || command.isTold) return;
    if (command.known->argument == formats::Argument::Page)
      Find(command, gui_.pagesByName, pages_, Rule::UnknownPage, "unknown page ");
    if (command.known->argument == formats::Argument::Widget)
      Find(command, gui_.widgetsByName, widgets_, Rule::UnknownWidget, "unknown widget ");
  }

 private:
  template <class Map>
  void Find(const Command& command, const Map& known, NameGuesser& guesser, Rule rule, const char* what) {
    if (known.contains(String(command.argument))) return;
    const Guess guess = guesser.Find(command.argument);
    if (!isComplete_ && !guess.isCaseAlone) return;
    std::string message = what + Quoted(command.argument);
    if (!guess.name.empty()) message += ", did you mean " + Quoted(guess.name) + '?';
    const Source& source = *gui_.pages[command.page].source;
    std::vector<formats::Edit> fix;
    if (guess.isCaseAlone) fix.push_back({RangeOf(source, command.argument), String(guess.name)});
    findings_.Add(rule, source, command.token, std::move(message), fix);
  }

  const Gui& gui_;
  Findings& findings_;
  bool isComplete_;
  NameGuesser pages_;
  NameGuesser widgets_;
};

}  // namespace

void CheckCommandTargets(const Gui& gui, const std::vector<Command>& commands, Findings& findings) {
  TargetCheck check(gui, findings);
  for (const Command& command : commands) check.Check(command);
}

}  // namespace qen::analysis
