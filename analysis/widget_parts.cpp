#include "analysis/widget_parts.h"

#include <cstdio>

#include "analysis/words.h"
#include "base/utf.h"

namespace qen::analysis {
namespace {

using formats::kNone;

struct CheckSide {
  Side side;
  StringView node;
};
constexpr std::array<CheckSide, 2> kCheckSides{{{Side::Checked, u"checked"}, {Side::Unchecked, u"unchecked"}}};
constexpr std::array<StringView, 5> kBarParts{u"barx", u"bary", u"slider", u"down", u"up"};

class PartFinder {
 public:
  explicit PartFinder(const Page& page) : scene_(page.scene) {}

  void AddLabels(const Widget& widget, std::size_t index) {
    widget_ = index;
    if (widget.letter == u't') {
      AddLabel(widget.node, Side::Both, Child(widget.node, u"slidery") != kNone);
    } else if (widget.letter == u'l') {
      const std::size_t box = Child(widget.node, u"list");
      if (box != kNone) labels.push_back({.widget = index, .node = box, .box = box, .isRows = true});
    } else if (widget.letter == u'b' || widget.letter == u'c') {
      AddLabel(Child(widget.node, u"text"), Side::Both);
    }
    if (widget.letter != u'c') return;
    for (const auto& [side, name] : kCheckSides) AddLabel(Child(Child(widget.node, name), u"text"), side);
  }

  void AddStates(const Widget& widget, std::size_t index) {
    widget_ = index;
    if (widget.letter == u'b') AddState(widget.node, Side::Both);
    if (widget.letter == u's') AddBar(widget.node);
    if (widget.letter == u't' || widget.letter == u'l') AddBar(Child(widget.node, u"slidery"));
    if (widget.letter != u'c') return;
    for (const auto& [side, name] : kCheckSides) AddState(Child(widget.node, name), side);
  }

  std::vector<Label> labels;
  std::vector<StatePart> states;

 private:
  [[nodiscard]] std::size_t Child(std::size_t parent, StringView name) const {
    return parent == kNone ? kNone : scene_.FindChild(parent, name);
  }

  void AddLabel(std::size_t node, Side side, bool scrolls = false) {
    if (node == kNone) return;
    labels.push_back(
        {.widget = widget_, .node = node, .box = Child(node, u"normal"), .side = side, .scrolls = scrolls});
  }

  void AddBar(std::size_t bar) {
    for (const StringView name : kBarParts) AddState(Child(bar, name), Side::Both);
  }

  void AddState(std::size_t node, Side side) {
    const std::size_t normal = Child(node, u"normal");
    if (normal == kNone) return;
    states.push_back({widget_, normal, Child(node, u"onmouse"), Child(node, u"disabled"), side});
  }

  const SceneOutline& scene_;
  std::size_t widget_ = 0;
};

}  // namespace

std::vector<Label> LabelsOf(const Page& page) {
  PartFinder finder(page);
  for (std::size_t i = 0; i < page.widgets.size(); ++i) finder.AddLabels(page.widgets[i], i);
  return std::move(finder.labels);
}

std::vector<StatePart> StatePartsOf(const Page& page) {
  PartFinder finder(page);
  for (std::size_t i = 0; i < page.widgets.size(); ++i) finder.AddStates(page.widgets[i], i);
  return std::move(finder.states);
}

std::size_t TokenOf(const Page& page, const Widget& widget) {
  return widget.blocks.empty() ? page.nameToken : page.source->Reading().blocks[widget.blocks.front()].name;
}

std::string NodeInWords(const Page& page, const Widget& widget, std::size_t node) {
  const std::string name = base::ToUtf8(widget.name);
  return node == widget.node ? name : Quoted(page.scene.nodes[node].name) + " of " + name;
}

std::string InUnits(double value) {
  std::array<char, 32> digits{};
  std::snprintf(digits.data(), digits.size(), "%.4g", value);
  return digits.data();
}

}  // namespace qen::analysis
