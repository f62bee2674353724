#include "analysis/rules/node_names.h"
#include "analysis/rules/rule_groups.h"
#include "engine/string_converter.h"

namespace qen::analysis {

WidgetPlaces::WidgetPlaces(const Page& page) : page_(page) {
  for (const std::size_t item : page.items) {
    const std::size_t name = page.source->Reading().blocks[item].name;
    if (name != formats::kNone) names_.try_emplace(ttolowercase(page.source->ValueAt(name)), name);
  }
}

std::size_t WidgetPlaces::Of(const String& name) const {
  const auto found = names_.find(name);
  return found == names_.end() ? page_.nameToken : found->second;
}

void CheckNames(const Page& page, Findings& findings) {
  CheckItems(page, findings);
  if (!page.hasScene) return;
  const WidgetPlaces places(page);
  CheckNodeNames(page, places, findings);
  CheckChildren(page, places, findings);
}

}  // namespace qen::analysis
