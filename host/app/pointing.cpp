#include "host/app/pointing.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <string>
#include <string_view>

#include "base/utf.h"
#include "engine/gui_page_object.h"
#include "engine/item_info.h"
#include "host/app/pages.h"
#include "host/app/widget_place.h"

namespace qen::host {
namespace {

// Parts of the half size from the centre; the centre comes first.
constexpr std::array kSteps{0.0F, -0.4F, 0.4F, -0.8F, 0.8F};

std::string NameOf(const ICGUIObject& widget) { return base::ToUtf8(widget.info->name); }

// Only these are found under the cursor.
bool IsPicked(const ICGUIObject& widget) {
  constexpr std::array kTypes{widget_type::kButton, widget_type::kCheckButton, widget_type::kList,
                              widget_type::kSlideBar};
  return std::ranges::find(kTypes, widget.info->type) != kTypes.end() && widget.info->visible != 0 &&
         widget.info->disabled == 0;
}

bool IsActive(IGui& gui, const ICGUIPageObject* page) {
  return std::ranges::any_of(gui.GetActivePages(), [&](std::uint32_t index) { return gui.GetPage(index) == page; });
}

// The widget of the page that the ray finds first; null when it finds none.
const ICGUIObject* FindFirst(const ICGUIPageObject& page, const Ray& ray) {
  for (ICGUIObject* widget : page.items) {
    const auto box = IsPicked(*widget) ? FindHitBox(*widget) : std::nullopt;
    if (box && Meets(ray, *box)) return widget;
  }
  return nullptr;
}

}  // namespace

base::Point FindPointOn(IGui& gui, ICGUIObject& widget, const Camera& camera, base::Point clientSize) {
  const auto refuse = [&widget](const std::string& why) -> std::runtime_error {
    return std::runtime_error(NameOf(widget) + " " + why);
  };
  const ICGUIPageObject* page = widget.GetPage();
  if (page == nullptr || !IsActive(gui, page)) {
    throw refuse("cannot be pointed at: its page " + (page != nullptr ? base::ToUtf8(ShortName(page->baseName)) : "") +
                 " is not active");
  }
  if (widget.info->visible == 0) throw refuse("is hidden");
  if (widget.info->disabled != 0) throw refuse("is disabled");
  const auto box = FindHitBox(widget);
  if (!box) throw refuse("has no box to point at");

  const ICGUIObject* inTheWay = nullptr;
  for (const float x : kSteps) {
    for (const float z : kSteps) {
      const auto point = Project(*box, {x, 0.0F, z}, camera, clientSize);
      if (!point || point->x < 0 || point->y < 0 || point->x >= clientSize.x || point->y >= clientSize.y) continue;
      const ICGUIObject* first = FindFirst(*page, RayThrough(*point, camera, clientSize));
      if (first == &widget || !IsPicked(widget)) return *point;
      if (first != nullptr) inTheWay = first;
    }
  }
  if (inTheWay != nullptr) throw refuse("is behind " + NameOf(*inTheWay));
  throw refuse("is out of sight");
}

}  // namespace qen::host
