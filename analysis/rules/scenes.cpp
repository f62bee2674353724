#include "analysis/rules/rule_groups.h"
#include "analysis/rules/scene_rules.h"
#include "analysis/words.h"
#include "formats/definition_words.h"

namespace qen::analysis {
namespace {

namespace word = formats::word;

const formats::Statement* FindHeader(const Page& page, StringView keyword) {
  for (const formats::Statement& statement : page.source->Reading().statements) {
    const bool stands = statement.state == formats::ValueState::Read && statement.block == 0;
    if (stands && statement.keyword->word == keyword) return &statement;
  }
  return nullptr;
}

void CheckExit(const Page& page, Findings& findings) {
  const formats::Statement* leaves = FindHeader(page, word::kAnimOut);
  if (leaves == nullptr || FindHeader(page, word::kAnimIn) != nullptr) return;
  findings.Add(Rule::ExitWithoutEntrance, *page.source, leaves->word,
               "the page leaves with an animation, but comes without one");
}

void CheckPageName(const Gui& gui, std::size_t index, Findings& findings) {
  const Page& page = gui.pages[index];
  const auto first = gui.pagesByName.find(page.name);
  if (first == gui.pagesByName.end() || first->second == index) return;
  findings.Add(Rule::SamePageName, *page.source, page.nameToken,
               Quoted(gui.pages[first->second].source->Name()) + " is the page " + Quoted(page.name) + ", too");
}

}  // namespace

void CheckScene(const Page& page, const base::SceneData& scene, Findings& findings) {
  CheckTextPlanes(page, findings);
  CheckStateBoxes(page, findings);
  CheckListBoxes(page, findings);
  CheckCovered(page, scene, findings);
  CheckUndrawn(page, scene, findings);
}

void CheckScenes(const Gui& gui, Findings& findings) {
  for (std::size_t i = 0; i < gui.pages.size(); ++i) {
    CheckPageName(gui, i, findings);
    CheckExit(gui.pages[i], findings);
  }
  CheckCameras(gui, findings);
}

}  // namespace qen::analysis
