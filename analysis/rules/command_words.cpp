#include <unordered_set>

#include "analysis/rules/command_list.h"
#include "analysis/words.h"
#include "engine/string_converter.h"

namespace qen::analysis {
namespace {

using formats::Argument;

class WordCheck {
 public:
  WordCheck(const Gui& gui, const ScriptWords& script, Findings& findings)
      : gui_(gui), script_(script), findings_(findings) {
    for (const formats::CommandWord& known : formats::kCommandWords) words_.push_back(known.word);
  }

  void Check(Command& command) {
    if (command.isTold) return;
    if (command.word.empty()) {
      Add(Rule::MissingArgument, command, "a command has a word before its colon");
      return;
    }
    CheckParts(command);
    if (command.known == nullptr && !script_.Names(command.word)) CheckUnknown(command);
  }

 private:
  [[nodiscard]] const Source& SourceOf(const Command& command) const { return *gui_.pages[command.page].source; }

  void Add(Rule rule, const Command& command, std::string message, const std::vector<formats::Edit>& fix = {}) {
    findings_.Add(rule, SourceOf(command), command.token, std::move(message), fix);
  }

  void CheckParts(const Command& command) {
    const Argument argument = command.known != nullptr ? command.known->argument : Argument::None;
    if (command.rest != formats::kNone) {
      AddBlank(command);
    } else if (argument != Argument::None && command.argument.empty()) {
      Add(Rule::MissingArgument, command,
          Quoted(command.word) + " needs a " + (argument == Argument::Page ? "page" : "widget") + " behind a colon");
    }
    if (!command.third.empty())
      Add(Rule::ThirdPart, command, "what is behind the second colon is left out: " + Quoted(command.third));
  }

  void AddBlank(const Command& command) {
    const Source& source = SourceOf(command);
    std::vector<formats::Edit> fix;
    const bool isQuoted = source.TokenAt(command.token).isQuoted || source.TokenAt(command.rest).isQuoted;
    if (!isQuoted) fix.push_back({{source.RangeAt(command.token).end, source.RangeAt(command.rest).begin}, {}});
    Add(Rule::BlankInCommand, command, "the command ends at the blank before " + Quoted(source.ValueAt(command.rest)),
        fix);
  }

  // A word that is left to the game is told of once.
  void CheckUnknown(Command& command) {
    const StringView nearest = Nearest(command.word, words_);
    if (nearest.empty()) {
      if (told_.insert(command.word).second)
        Add(Rule::GameCommand, command, Quoted(command.word) + " is left to the game");
      return;
    }
    std::vector<formats::Edit> fix;
    const bool isCertain =
        EditDistance(command.word, nearest, 1) <= 1 || ttolowercase(command.word) == ttolowercase(nearest);
    if (isCertain) fix.push_back({RangeOf(SourceOf(command), command.word), String(nearest)});
    Add(Rule::AlmostCommand, command,
        "unknown command " + Quoted(command.word) + ", did you mean " + Quoted(nearest) + '?', fix);
    command.known = formats::FindCommand(nearest);
    command.isTold = true;
  }

  const Gui& gui_;
  const ScriptWords& script_;
  Findings& findings_;
  std::vector<StringView> words_;
  std::unordered_set<StringView> told_;
};

}  // namespace

void CheckCommandWords(const Gui& gui, const ScriptWords& script, std::vector<Command>& commands, Findings& findings) {
  WordCheck check(gui, script, findings);
  for (Command& command : commands) check.Check(command);
}

}  // namespace qen::analysis
