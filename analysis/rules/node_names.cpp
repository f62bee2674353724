#include "analysis/rules/node_names.h"

#include <algorithm>

#include "analysis/words.h"
#include "engine/string_converter.h"
#include "formats/definition_syntax.h"
#include "formats/page_view.h"
#include "formats/widget_kinds.h"

namespace qen::analysis {
namespace {

struct NodeCheck {
  const Page& page;
  const WidgetPlaces& places;
  Findings& findings;

  void Tell(Rule rule, const String& name, std::string message) const {
    findings.Add(rule, *page.source, places.Of(ttolowercase(name)), std::move(message));
  }
};

// Of a node that begins with the mark of widgets.
void CheckKindLetter(const NodeCheck& check, const String& name) {
  if (name.size() >= 2 && formats::IsWidgetLetter(name[1], check.page.isBag)) return;
  const String lower = ttolowercase(name);
  const std::string shown = "the node " + Quoted(name);
  if (name.size() >= 2 && formats::IsWidgetLetter(lower[1], check.page.isBag)) {
    String meant = name;
    meant[1] = lower[1];
    check.Tell(Rule::LetterCase, name, shown + " makes no widget: it must be " + Quoted(meant));
    return;
  }
  const bool isOfOthers = name.size() >= 2 && formats::kAnyWidget.find(lower[1]) != StringView::npos;
  const char* others = check.page.isBag ? ": a bag has slots alone, ~q" : ": slots are for bags";
  check.Tell(Rule::UnknownKind, name, shown + " makes no widget" + (isOfOthers ? others : ": no kind has that letter"));
}

void CheckNode(const NodeCheck& check, const String& name) {
  if (name.starts_with(formats::kWidgetMark)) {
    CheckKindLetter(check, name);
  } else if (name.size() == formats::kCameraNode.size() && name != formats::kCameraNode &&
             ttolowercase(name) == ttolowercase(formats::kCameraNode)) {
    check.Tell(Rule::LetterCase, name,
               "the node " + Quoted(name) + " is no camera of the page: it must be \"Camera01\"");
  }
}

// Of the widget at a position: the first of its name tells for all.
void CheckWidgetName(const NodeCheck& check, std::size_t index, std::vector<bool>& isRepeated) {
  const Widget& widget = check.page.widgets[index];
  const std::size_t first = check.page.widgetsByName.at(widget.name);
  if (first != index) {
    if (!isRepeated[first]) check.Tell(Rule::RepeatedNode, widget.name, "two nodes are named " + Quoted(widget.name));
    isRepeated[first] = true;
  } else if (widget.name.find_first_of(formats::kSeparators) != StringView::npos) {
    check.Tell(Rule::BlankInName, widget.name, "the name " + Quoted(widget.name) + " has a blank");
  }
}

}  // namespace

void CheckNodeNames(const Page& page, const WidgetPlaces& places, Findings& findings) {
  const NodeCheck check{page, places, findings};
  for (const Node& node : page.scene.nodes) CheckNode(check, node.name);
  std::vector<bool> isRepeated(page.widgets.size());
  for (std::size_t i = 0; i < page.widgets.size(); ++i) CheckWidgetName(check, i, isRepeated);
}

}  // namespace qen::analysis
