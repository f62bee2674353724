#include "host/app/unseen_pages.h"

#include <algorithm>
#include <cstdint>
#include <vector>

#include "base/utf.h"
#include "engine/gui_page_object.h"
#include "host/app/pages.h"

namespace qen::host {
namespace {

bool IsUnseen(IGui& gui, std::uint32_t page) {
  const ICGUIPageObject* object = gui.GetPage(page);
  return object != nullptr && !object->items.empty() && !gui.IsRenderPage(page);
}

}  // namespace

void UnseenPages::Look(IGui& gui, const std::function<void(const std::string& line)>& print) {
  const std::vector<std::uint32_t>& active = gui.GetActivePages();
  const bool anyUnseen = std::ranges::any_of(active, [&gui](std::uint32_t page) { return IsUnseen(gui, page); });
  if (!anyUnseen) frames_ = 0;
  if (!anyUnseen || frames_ == kPatience) return;
  // Commands wait for animations; the frame after one may put everything right.
  frames_ = FindPlayingAnim(gui) == nullptr ? frames_ + 1 : 0;
  if (frames_ < kPatience) return;
  for (std::uint32_t page = 0; page < gui.GetPageCount(); ++page) {
    if (!gui.IsActivePage(page) || !IsUnseen(gui, page)) continue;
    print(base::ToUtf8(gui.GetPageName(page)) + " takes input but is not drawn");
  }
}

}  // namespace qen::host
