#include <algorithm>
#include <cmath>
#include <numbers>

#include "analysis/rules/scene_rules.h"
#include "analysis/widget_parts.h"
#include "analysis/words.h"
#include "formats/page_view.h"

namespace qen::analysis {
namespace {

using View = std::array<float, 3>;  // vertical angle, near and far plane

constexpr View kUsualView{formats::kFieldOfView, formats::kNearPlane, formats::kFarPlane};

// What the camera of a page's scene makes of the view; one that makes no sense is passed over.
View ViewOf(const Page& page) {
  if (!page.scene.camera) return kUsualView;
  const auto [angle, nearPlane, farPlane] = *page.scene.camera;
  const bool makesSense = angle > 0.0F && angle < std::numbers::pi_v<float> && nearPlane > 0.0F && farPlane > nearPlane;
  return makesSense ? *page.scene.camera : kUsualView;
}

bool AreAlike(const View& a, const View& b) {
  constexpr float kTolerance = 1e-3F;  // as a share
  return std::ranges::equal(a, b, [](float x, float y) {
    return x == y || std::fabs(x - y) <= kTolerance * std::max(std::fabs(x), std::fabs(y));
  });
}

std::string InWords(const View& view) {
  return "an angle of " + InUnits(static_cast<double>(view[0]) * 180.0 / std::numbers::pi) + " degrees, planes at " +
         InUnits(static_cast<double>(view[1])) + " and " + InUnits(static_cast<double>(view[2]));
}

}  // namespace

void CheckCameras(const Gui& gui, Findings& findings) {
  const auto last = std::ranges::find_if(gui.pages.rbegin(), gui.pages.rend(), &Page::hasScene);
  if (last == gui.pages.rend()) return;
  const View view = ViewOf(*last);
  const auto other = std::ranges::find_if(
      gui.pages, [&view](const Page& page) { return page.hasScene && !AreAlike(ViewOf(page), view); });
  if (other == gui.pages.end()) return;
  findings.Add(Rule::CameraOfOthers, *last->source, last->nameToken,
               "the last page decides how all are seen, with " + InWords(view) + "; the scene " +
                   Quoted(other->sceneFile) + " asks for " + InWords(ViewOf(*other)));
}

}  // namespace qen::analysis
