// All commands of a GUI's pages, and the groups of rules that walk them.
#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "analysis/findings.h"
#include "analysis/gui_model.h"
#include "analysis/rules/script_words.h"
#include "formats/command_words.h"

namespace qen::analysis {

struct Command {
  std::size_t page = 0;  // whose file has it
  std::size_t token = 0;
  std::size_t rest = formats::kNone;  // token behind a blank, that belongs to it
  const Widget* sender = nullptr;     // null when the scene has none of that name
  std::size_t block = 0;              // the item's, or its entry's
  StringView word = {};
  StringView argument = {};
  StringView third = {};  // behind a second colon
  const formats::CommandWord* known = nullptr;
  bool isTold = false;  // it is faulty as a whole; what it names proves nothing
};

std::vector<Command> CollectCommands(const Gui& gui);

// Where a part of a command stands in its file.
formats::Range16 RangeOf(const Source& source, StringView part);

// Of words, colons and blanks. Commands whose word is almost one of the GUI's are taken for that one from then on.
void CheckCommandWords(const Gui& gui, const ScriptWords& script, std::vector<Command>& commands, Findings& findings);

// Of pages and widgets that commands name.
void CheckCommandTargets(const Gui& gui, const std::vector<Command>& commands, Findings& findings);

void CheckTextSetting(const Gui& gui, const std::vector<Command>& commands, Findings& findings);
void CheckRadioGroups(const Gui& gui, const std::vector<Command>& commands, Findings& findings);

// Of how pages are come to and left; nothing where a command names a page that does not exist.
void CheckPageWays(const Gui& gui, const ScriptWords& script, const std::vector<Command>& commands, Findings& findings);

}  // namespace qen::analysis
