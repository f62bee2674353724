#include <algorithm>
#include <cmath>
#include <numbers>

#include "analysis/rules/scene_rules.h"
#include "analysis/widget_parts.h"
#include "base/utf.h"

namespace qen::analysis {
namespace {

using formats::kNone;

Vec3 RowOf(const Matrix4x4& matrix, std::size_t row) { return {matrix.m[row][0], matrix.m[row][1], matrix.m[row][2]}; }

// How a plane of words is scaled and turned against the screen; what is no number is as it should be.
std::string DistortionOf(const Matrix4x4& world) {
  constexpr float kScaled = 0.01F;
  constexpr double kTurned = 1.0;  // degrees
  const Vec3 across = RowOf(world, 0);
  const Vec3 up = RowOf(world, 2);
  const float width = across.Length();
  const float height = up.Length();
  if (std::fabs(width - 1.0F) > kScaled || std::fabs(height - 1.0F) > kScaled) {
    return "scaled by " + InUnits(static_cast<double>(width)) + " x " + InUnits(static_cast<double>(height));
  }
  const float cosine = std::clamp(std::min(across.x / width, up.y / height), -1.0F, 1.0F);
  const double degrees = std::acos(static_cast<double>(cosine)) * 180.0 / std::numbers::pi;
  return degrees > kTurned ? "turned by " + InUnits(degrees) + " degrees" : "";
}

struct Extent {
  double left = 0.0, right = 0.0, bottom = 0.0, top = 0.0;

  [[nodiscard]] double Width() const { return right - left; }
  [[nodiscard]] double Height() const { return top - bottom; }
};

// What of the screen's plane a node's box takes.
std::optional<Extent> ExtentOf(const Page& page, std::size_t node) {
  if (node == kNone || !page.scene.nodes[node].box) return std::nullopt;
  const auto& [name, parent, children, pose, world, box] = page.scene.nodes[node];
  const Vec3 center = world * box->center;
  Vec3 half;
  for (std::size_t axis = 0; axis < 3; ++axis) {
    const Vec3 row = RowOf(world, axis);
    const float size = axis == 0 ? box->halfSize.x : axis == 1 ? box->halfSize.y : box->halfSize.z;
    half = half + Vec3{std::fabs(row.x), std::fabs(row.y), std::fabs(row.z)} * size;
  }
  return Extent{static_cast<double>(center.x - half.x), static_cast<double>(center.x + half.x),
                static_cast<double>(center.y - half.y), static_cast<double>(center.y + half.y)};
}

bool AreAlike(const Extent& a, const Extent& b) {
  constexpr double kShare = 0.05;  // of the greater side
  constexpr double kLeast = 0.1;   // units
  const double most = std::max(kShare * std::max(a.Width(), a.Height()), kLeast);
  const std::array<double, 4> distances{a.left - b.left, a.right - b.right, a.bottom - b.bottom, a.top - b.top};
  return std::ranges::none_of(distances, [most](double distance) { return std::fabs(distance) > most; });
}

std::string InWords(const Extent& extent) {
  return InUnits(extent.Width()) + " x " + InUnits(extent.Height()) + " around " +
         InUnits((extent.left + extent.right) / 2.0) + ", " + InUnits((extent.bottom + extent.top) / 2.0);
}

// Tells, where the states differ, of the node of the first one that does.
bool TellDifferentBox(const Page& page, const StatePart& part, std::size_t expected, std::size_t other,
                      Findings& findings) {
  const std::optional<Extent> normal = ExtentOf(page, expected);
  const std::optional<Extent> state = ExtentOf(page, other);
  if (!normal || !state || AreAlike(*normal, *state)) return false;
  const Widget& widget = page.widgets[part.widget];
  const auto nameOf = [&](std::size_t node) {
    const Node& shown = page.scene.nodes[node];
    const bool deep = shown.parent != kNone && shown.parent != widget.node;
    return (deep ? base::ToUtf8(page.scene.nodes[shown.parent].name) + '/' : "") + base::ToUtf8(shown.name);
  };
  findings.Add(Rule::StateBoxes, *page.source, TokenOf(page, widget),
               base::ToUtf8(widget.name) + ": " + nameOf(other) + " is " + InWords(*state) + ", " + nameOf(expected) +
                   ' ' + InWords(*normal));
  return true;
}

// Empty when the mesh of a list lies where its rows are clicked.
std::string DistanceFromNode(const AABB& box) {
  constexpr float kMost = 0.5F;  // units
  const float across = box.center.x;
  if (!(std::fabs(across) > kMost)) return {};
  return InUnits(static_cast<double>(std::fabs(across))) + (across > 0.0F ? " right" : " left") +
         " of the node, around which clicks are looked for";
}

}  // namespace

void CheckTextPlanes(const Page& page, Findings& findings) {
  for (const Label& label : LabelsOf(page)) {
    const std::string distortion = DistortionOf(page.scene.nodes[label.Plane()].world);
    if (distortion.empty()) continue;
    const Widget& widget = page.widgets[label.widget];
    findings.Add(Rule::ScaledText, *page.source, TokenOf(page, widget),
                 NodeInWords(page, widget, label.node) + " is " + distortion + ", and so are its words");
  }
}

void CheckStateBoxes(const Page& page, Findings& findings) {
  std::vector<bool> isTold(page.widgets.size());
  const StatePart* checked = nullptr;
  const std::vector<StatePart> parts = StatePartsOf(page);
  for (const StatePart& part : parts) {
    if (part.side == Side::Checked) checked = &part;
    for (const std::size_t state : {part.onMouse, part.disabled}) {
      if (!isTold[part.widget]) isTold[part.widget] = TellDifferentBox(page, part, part.normal, state, findings);
    }
    const bool isOther = part.side == Side::Unchecked && checked != nullptr && checked->widget == part.widget;
    if (isOther && !isTold[part.widget]) TellDifferentBox(page, part, checked->normal, part.normal, findings);
  }
}

void CheckListBoxes(const Page& page, Findings& findings) {
  for (const Label& label : LabelsOf(page)) {
    const std::optional<AABB>& box = page.scene.nodes[label.Plane()].box;
    if (!label.isRows || !box) continue;
    const std::string distance = DistanceFromNode(*box);
    if (distance.empty()) continue;
    const Widget& widget = page.widgets[label.widget];
    findings.Add(Rule::ListOffNode, *page.source, TokenOf(page, widget),
                 NodeInWords(page, widget, label.node) + " has its mesh " + distance);
  }
}

}  // namespace qen::analysis
