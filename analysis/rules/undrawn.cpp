#include <algorithm>

#include "analysis/rules/scene_rules.h"
#include "analysis/words.h"
#include "base/utf.h"

namespace qen::analysis {

void CheckUndrawn(const Page& page, const base::SceneData& scene, Findings& findings) {
  constexpr std::ptrdiff_t kMostLights = 8;
  std::vector<String> undrawn = scene.undrawn;
  const std::ptrdiff_t lights =
      std::ranges::count_if(scene.nodes, [](const base::NodeData& node) { return node.light.has_value(); });
  if (lights > kMostLights) {
    undrawn.push_back(base::ToUtf16("the last " + std::to_string(lights - kMostLights) + " of its lights"));
  }
  if (undrawn.empty()) return;
  std::string list;
  for (const String& what : undrawn) list += (list.empty() ? "" : ", ") + base::ToUtf8(what);
  findings.Add(Rule::NotDrawn, *page.source, page.nameToken,
               "of the scene " + Quoted(page.sceneFile) + " this is not drawn: " + list);
}

}  // namespace qen::analysis
