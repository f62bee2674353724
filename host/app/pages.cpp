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

ICGUIObject& FindWidget(IGui& gui, StringView name) {
  const std::size_t slash = name.rfind(u'/');
  const bool onPage = slash != StringView::npos;
  const String wanted = ttolowercase(name.substr(onPage ? slash + 1 : 0));
  std::vector<std::uint32_t> pages;
  if (onPage) {
    pages = {PageNamed(gui, name.substr(0, slash))};
  } else {
    pages = gui.GetActivePages();
    for (std::uint32_t page = 0; page < gui.GetPageCount(); ++page) pages.push_back(page);
  }
  for (const std::uint32_t page : pages) {
    const ICGUIPageObject* object = gui.GetPage(page);
    if (object == nullptr) continue;
    for (ICGUIObject* widget : object->items) {
      if (widget->info != nullptr && widget->info->name == wanted) return *widget;
    }
  }
  throw std::runtime_error("there is no widget " + base::ToUtf8(name));
}

ICGUIAnim* FindPlayingAnim(IGui& gui) {
  for (std::uint32_t page = 0; page < gui.GetPageCount(); ++page) {
    if (ICGUIAnim* playing = gui.GetPage(page)->GetPlayingAnim()) return playing;
  }
  return nullptr;
}

ICGUIText* FindEditedText(IGui& gui) {
  for (const std::uint32_t page : gui.GetActivePages()) {
    const ICGUIPageObject* active = gui.GetPage(page);
    if (active == nullptr) continue;
    for (ICGUIObject* widget : active->items) {
      if (widget->state == widget_state::kEditing) return dynamic_cast<ICGUIText*>(widget);
    }
  }
  return nullptr;
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
