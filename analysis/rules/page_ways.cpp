#include <algorithm>
#include <array>

#include "analysis/rules/command_list.h"
#include "analysis/words.h"

namespace qen::analysis {
namespace {

// What a command with that word does for the page that it names, and for the one that it stands on.
struct PageWay {
  StringView word;
  bool shows;
  bool leavesNamed;
  bool leavesOwn;
};

constexpr std::array<PageWay, 7> kPageWays{{
    {command::kSetPage, true, false, true},
    {command::kUndoPage, false, false, true},
    {command::kAddRenderPage, true, false, false},
    {command::kRemRenderPage, false, true, false},
    {command::kAddActivePage, true, false, false},
    {command::kRemActivePage, false, true, false},
    {command::kRemoveAllFromRender, false, false, true},
}};

class WayCheck {
 public:
  WayCheck(const Gui& gui, const ScriptWords& script)
      : gui_(gui), script_(script), isShown_(gui.pages.size()), isLeft_(gui.pages.size()) {}

  // False where the page that is meant is not known.
  bool Follow(const Command& command) {
    if (command.known == nullptr) {  // the game may do anything
      isLeft_[command.page] = true;
      return true;
    }
    const auto* way = std::ranges::find(kPageWays, command.known->word, &PageWay::word);
    if (way == kPageWays.end()) return true;
    std::size_t named = gui_.pages.size();
    if (command.known->argument == formats::Argument::Page) {
      const auto found = gui_.pagesByName.find(String(command.argument));
      if (found == gui_.pagesByName.end()) return false;
      named = found->second;
    }
    if (named == command.page && way->shows) return true;
    if (way->shows) isShown_[named] = true;
    if (way->leavesNamed) isLeft_[named] = true;
    if (way->leavesOwn) isLeft_[command.page] = true;
    return true;
  }

  void Tell(Findings& findings) const {
    for (std::size_t i = 0; i < gui_.pages.size(); ++i) {
      const Page& page = gui_.pages[i];
      const bool isFirstOfName = !page.name.empty() && gui_.pagesByName.at(page.name) == i;
      if (!isFirstOfName || script_.NamesPage(page.name)) continue;
      if (i > 0 && !isShown_[i]) {
        const std::size_t place = gui_.description->Reading().statements[page.statement].value;
        findings.Add(Rule::UnreachedPage, *gui_.description, place, "no command shows the page " + Quoted(page.name));
      } else if (!isLeft_[i]) {
        findings.Add(Rule::NoWayOut, *page.source, page.nameToken, "no command leaves the page " + Quoted(page.name));
      }
    }
  }

 private:
  const Gui& gui_;
  const ScriptWords& script_;
  std::vector<bool> isShown_;
  std::vector<bool> isLeft_;
};

}  // namespace

void CheckPageWays(const Gui& gui, const ScriptWords& script, const std::vector<Command>& commands,
                   Findings& findings) {
  if (!IsComplete(gui)) return;
  WayCheck check(gui, script);
  for (const Command& command : commands) {
    if (!check.Follow(command)) return;
  }
  check.Tell(findings);
}

}  // namespace qen::analysis
