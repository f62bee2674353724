#include <algorithm>
#include <cmath>

#include "analysis/rules/scene_rules.h"
#include "analysis/rules/sight_lines.h"
#include "analysis/widget_parts.h"
#include "analysis/words.h"
#include "base/utf.h"
#include "formats/definition_words.h"
#include "formats/widget_kinds.h"

namespace qen::analysis {
namespace {

using formats::kNone;

// What a node may hide.
struct Veil {
  std::size_t owner = kNone;  // the widget that it is a part of
  Side side = Side::Both;
  bool isDrawn = true;
  bool isAtRest = true;  // else it is there for a state that the page does not begin with
};

// What should be seen: a widget, or its label.
struct Sight {
  Vec3 ray;  // from the eye to it
  std::size_t widget = 0;
  const Label* label = nullptr;
  std::size_t coveredBy = kNone;

  [[nodiscard]] float X() const { return ray.x / ray.z; }  // on the screen
  [[nodiscard]] float Y() const { return ray.y / ray.z; }
};

class Looker {
 public:
  Looker(const Page& page, const base::SceneData& scene)
      : page_(page), scene_(scene), labels_(LabelsOf(page)), states_(StatePartsOf(page)) {
    FindHidden();
    MakeVeils();
    MakeSights();
  }

  void Look() {
    std::size_t effort = 10'000'000;  // so that no scene takes longer than some seconds
    for (std::size_t i = 0; i < veils_.size() && effort > 0; ++i) {
      if (veils_[i].isDrawn && page_.scene.nodes[i].box) LookAt(i, effort);
    }
  }

  // The first of each widget, the widget itself before its labels.
  void Tell(Findings& findings) const {
    std::vector<const Sight*> worst(page_.widgets.size());
    for (const Sight& sight : sights_) {
      if (sight.coveredBy == kNone) continue;
      const Sight*& known = worst[sight.widget];
      if (known == nullptr || (known->label != nullptr && sight.label == nullptr)) known = &sight;
    }
    for (const Sight* sight : worst) {
      if (sight != nullptr) Tell(*sight, findings);
    }
  }

 private:
  void FindHidden() {
    const formats::Reading& reading = page_.source->Reading();
    std::vector<bool> hiding(reading.blocks.size());
    for (const formats::Statement& statement : reading.statements) {
      if (statement.keyword->word == formats::word::kVisible && statement.state == formats::ValueState::Read)
        hiding[statement.block] = page_.source->ValueAt(statement.value) == u"0";
    }
    for (const Widget& widget : page_.widgets) {
      isHidden_.push_back(std::ranges::any_of(widget.blocks, [&hiding](std::size_t block) { return hiding[block]; }));
    }
  }

  void MakeVeils() {
    const auto& nodes = page_.scene.nodes;
    veils_.resize(nodes.size());
    for (std::size_t i = 0; i < page_.widgets.size(); ++i) {
      veils_[page_.widgets[i].node].owner = i;
      if (page_.isBag) veils_[page_.widgets[i].node].isDrawn = false;  // a picture is drawn instead
    }
    MarkSides();
    for (std::size_t i = 0; i < nodes.size(); ++i) {
      Veil& veil = veils_[i];
      if (nodes[i].parent != kNone && veil.owner == kNone) veil.owner = veils_[nodes[i].parent].owner;
      if (veil.owner != kNone && isHidden_[veil.owner]) veil.isDrawn = false;
    }
    for (const Label& label : labels_) {
      if (!label.isRows) veils_[label.Plane()].isDrawn = false;  // the words are drawn instead
    }
  }

  void MarkSides() {
    for (const StatePart& part : states_) {
      for (const std::size_t node : {part.normal, part.onMouse, part.disabled}) {
        if (node == kNone) continue;
        veils_[node].side = part.side;
        veils_[node].isAtRest = node == part.normal && part.side != Side::Unchecked;
      }
    }
  }

  void MakeSights() {
    for (const StatePart& part : states_) {
      if (IsPicked(part)) AddSight(part.widget, part.normal, nullptr);
    }
    for (std::size_t i = 0; i < page_.widgets.size(); ++i) {
      const Widget& widget = page_.widgets[i];
      if (widget.letter == u'p' || widget.letter == formats::kSlotLetter) AddSight(i, widget.node, nullptr);
    }
    for (const Label& label : labels_) AddSight(label.widget, label.Plane(), &label);
    std::ranges::sort(sights_, {}, &Sight::X);
  }

  // Whether the pointer is looked for on it: of slide bars on the bar, which stands first among their parts.
  [[nodiscard]] bool IsPicked(const StatePart& part) const {
    const Char letter = page_.widgets[part.widget].letter;
    if (part.side == Side::Unchecked || (letter != u'b' && letter != u'c' && letter != u's')) return false;
    return letter != u's' || sights_.empty() || sights_.back().widget != part.widget;
  }

  // Of a widget the middle of its front is looked at, of words the middle of their plane.
  void AddSight(std::size_t widget, std::size_t node, const Label* label) {
    const Node& shown = page_.scene.nodes[node];
    if (!shown.box || isHidden_[widget]) return;
    const float y = label != nullptr ? 0.0F : shown.box->center.y + shown.box->halfSize.y;
    const Sight sight{.ray = RayTo(shown.world * Vec3{shown.box->center.x, y, shown.box->center.z}),
                      .widget = widget,
                      .label = label};
    if (sight.ray.z > 0.0F && std::isfinite(sight.X()) && std::isfinite(sight.Y())) sights_.push_back(sight);
  }

  void LookAt(std::size_t node, std::size_t& effort) {
    const ScreenBox box = ScreenBoxOf(page_.scene.nodes[node]);
    for (auto at = std::ranges::lower_bound(sights_, box.left, {}, &Sight::X); at != sights_.end(); ++at) {
      Sight& sight = *at;
      if (!(sight.X() <= box.right) || effort == 0) return;
      --effort;
      const bool mayHide = sight.coveredBy == kNone && sight.Y() >= box.bottom && sight.Y() <= box.top &&
                           box.nearest < sight.ray.z && MayHide(node, sight);
      if (!mayHide) continue;
      const bool hides = IsMetBefore(sight.ray, scene_, scene_.nodes[node].mesh, page_.scene.nodes[node].world, effort);
      if (hides) sight.coveredBy = node;
    }
  }

  [[nodiscard]] bool MayHide(std::size_t node, const Sight& sight) const {
    const Veil& veil = veils_[node];
    if (veil.owner != sight.widget) return veil.isAtRest;
    if (sight.label == nullptr) return false;
    const Side side = sight.label->side;
    return side == Side::Both || veil.side == Side::Both || veil.side == side;
  }

  void Tell(const Sight& sight, Findings& findings) const {
    const Widget& widget = page_.widgets[sight.widget];
    const Veil& veil = veils_[sight.coveredBy];
    const std::string covered = sight.label == nullptr ? base::ToUtf8(widget.name)
                                : sight.label->isRows  ? "the rows of " + base::ToUtf8(widget.name)
                                                       : NodeInWords(page_, widget, sight.label->node);
    findings.Add(Rule::Covered, *page_.source, TokenOf(page_, widget),
                 covered + " is behind " +
                     (veil.owner == kNone ? Quoted(page_.scene.nodes[sight.coveredBy].name)
                                          : NodeInWords(page_, page_.widgets[veil.owner], sight.coveredBy)));
  }

  const Page& page_;
  const base::SceneData& scene_;
  const std::vector<Label> labels_;
  const std::vector<StatePart> states_;
  std::vector<bool> isHidden_;  // of the widgets
  std::vector<Veil> veils_;     // of the nodes
  std::vector<Sight> sights_;   // from left to right
};

}  // namespace

void CheckCovered(const Page& page, const base::SceneData& scene, Findings& findings) {
  Looker looker(page, scene);
  looker.Look();
  looker.Tell(findings);
}

}  // namespace qen::analysis
