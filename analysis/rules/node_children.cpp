#include <array>
#include <span>

#include "analysis/rules/node_names.h"
#include "analysis/words.h"

namespace qen::analysis {
namespace {

using formats::kNone;

// What a kind needs: a child of one of two names, and in it a further one.
struct NeededChild {
  Char letter;
  StringView child;
  StringView orChild;  // empty for none
  StringView inside;   // empty for nothing
};
constexpr std::array<NeededChild, 5> kNeededChildren{{
    {u'b', u"normal", u"", u""},
    {u'c', u"checked", u"", u"normal"},
    {u'c', u"unchecked", u"", u"normal"},
    {u'l', u"list", u"", u""},
    {u's', u"barx", u"bary", u"normal"},
}};

// What is missing, in words; empty when nothing is.
std::string MissingOf(const SceneOutline& scene, std::size_t node, const NeededChild& needed) {
  std::size_t child = scene.FindChild(node, needed.child);
  if (child == kNone && !needed.orChild.empty()) child = scene.FindChild(node, needed.orChild);
  if (child == kNone) {
    const std::string other = needed.orChild.empty() ? "" : " or " + Quoted(needed.orChild);
    return " has no node " + Quoted(needed.child) + other;
  }
  if (needed.inside.empty() || scene.FindChild(child, needed.inside) != kNone) return {};
  return " has no node " + Quoted(needed.inside) + " in its " + Quoted(scene.nodes[child].name);
}

}  // namespace

void CheckChildren(const Page& page, const WidgetPlaces& places, Findings& findings) {
  for (const Widget& widget : page.widgets) {
    for (const NeededChild& needed : kNeededChildren) {
      if (needed.letter != widget.letter) continue;
      const std::string missing = MissingOf(page.scene, widget.node, needed);
      if (missing.empty()) continue;
      findings.Add(Rule::MissingChild, *page.source, places.Of(widget.name), Quoted(widget.name) + missing);
    }
  }
}

}  // namespace qen::analysis
