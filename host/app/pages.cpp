#include "host/app/pages.h"

#include <algorithm>
#include <stdexcept>
#include <string>
#include <vector>

#include "base/utf.h"
#include "engine/gui_page_object.h"
#include "engine/item_info.h"
#include "engine/string_converter.h"
#include "engine/widget_state.h"

namespace qen::host {

String ShortName(StringView pageName) {
  const std::size_t separator = pageName.find_last_of(u"/\\");
  if (separator != StringView::npos) pageName.remove_prefix(separator + 1);
  return ttolowercase(pageName.substr(0, pageName.find_last_of(u'.')));
}

std::optional<std::uint32_t> FindPageByName(IGui& gui, StringView name) {
  const std::int32_t exact = gui.FindPage(String(name));
  if (exact >= 0) return static_cast<std::uint32_t>(exact);
  const String wanted = ShortName(name);
  for (std::uint32_t page = 0; page < gui.GetPageCount(); ++page) {
    if (ShortName(gui.GetPageName(page)) == wanted) return page;
  }
  return std::nullopt;
}

std::uint32_t PageNamed(IGui& gui, StringView name) {
  if (const auto page = FindPageByName(gui, name)) return *page;
  std::string known;
  for (std::uint32_t page = 0; page < gui.GetPageCount(); ++page) {
    known += (known.empty() ? "" : ", ") + base::ToUtf8(ShortName(gui.GetPageName(page)));
  }
  throw std::runtime_error("there is no page " + base::ToUtf8(name) + ", only: " + known);
}

std::vector<std::uint32_t> ActiveThenAll(IGui& gui) {
  std::vector<std::uint32_t> pages = gui.GetActivePages();
  for (std::uint32_t page = 0; page < gui.GetPageCount(); ++page) pages.push_back(page);
  return pages;
}

ICGUIObject* FindFirstWidget(IGui& gui, const std::vector<std::uint32_t>& pages,
                             const std::function<bool(ICGUIObject& widget)>& isWanted) {
  for (const std::uint32_t page : pages) {
    const ICGUIPageObject* object = gui.GetPage(page);
    if (object == nullptr) continue;
    for (ICGUIObject* widget : object->items) {
      if (isWanted(*widget)) return widget;
    }
  }
  return nullptr;
}

ICGUIObject& FindWidget(IGui& gui, StringView name) {
  const std::size_t slash = name.rfind(u'/');
  const bool onPage = slash != StringView::npos;
  const String wanted = ttolowercase(name.substr(onPage ? slash + 1 : 0));
  const std::vector<std::uint32_t> pages =
      onPage ? std::vector{PageNamed(gui, name.substr(0, slash))} : ActiveThenAll(gui);
  ICGUIObject* found =
      FindFirstWidget(gui, pages, [&wanted](const ICGUIObject& widget) { return widget.info->name == wanted; });
  if (found == nullptr) throw std::runtime_error("there is no widget " + base::ToUtf8(name));
  return *found;
}

// Commands that wait for an animation are offered as long as it plays, and what they bring is seen a step later.
bool Settle(IGui& gui, std::int32_t longest, const std::function<bool()>& step) {
  for (std::int32_t taken = 0; taken < longest; ++taken) {
    if (!step() && FindPlayingAnim(gui) == nullptr) return true;
  }
  return false;
}

ICGUIAnim* FindPlayingAnim(IGui& gui) {
  for (std::uint32_t page = 0; page < gui.GetPageCount(); ++page) {
    if (ICGUIAnim* playing = gui.GetPage(page)->GetPlayingAnim()) return playing;
  }
  return nullptr;
}

ICGUIText* FindEditedText(IGui& gui) {
  return dynamic_cast<ICGUIText*>(FindFirstWidget(
      gui, gui.GetActivePages(), [](const ICGUIObject& widget) { return widget.state == widget_state::kEditing; }));
}

ICGUIObject* FindLiving(IGui& gui, const ICGUIObject* object) {
  if (object == nullptr) return nullptr;
  for (std::uint32_t page = 0; page < gui.GetPageCount(); ++page) {
    const auto& items = gui.GetPage(page)->items;
    const auto found = std::ranges::find(items, object);
    if (found != items.end()) return *found;
  }
  return nullptr;
}

}  // namespace qen::host
