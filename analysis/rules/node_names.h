// The groups of rules of names: of a page's nodes, and of its item blocks.
#pragma once

#include <string>
#include <unordered_set>

#include "analysis/findings.h"
#include "analysis/gui_model.h"

namespace qen::analysis {

// Where a widget, by its name in lower case, is told of: at its block's name, or at the page's scene.
class WidgetPlaces {
 public:
  explicit WidgetPlaces(const Page& page);

  [[nodiscard]] std::size_t Of(const String& name) const;

 private:
  const Page& page_;
  std::unordered_map<String, std::size_t> names_;  // tokens, of the first block of each
};

// Nodes that make no widget although their names begin like one's, and such as differ in letter case alone.
void CheckNodeNames(const Page& page, const WidgetPlaces& places, Findings& findings);

// Children that widgets need.
void CheckChildren(const Page& page, const WidgetPlaces& places, Findings& findings);

// Blocks without widgets, and widgets without blocks.
void CheckItems(const Page& page, Findings& findings);

}  // namespace qen::analysis
