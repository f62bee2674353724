#include "host/app/pages.h"

#include <algorithm>

#include "base/utf.h"
#include "engine/gui_page_object.h"
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

std::string ListPageNames(IGui& gui) {
  std::string list;
  for (std::uint32_t page = 0; page < gui.GetPageCount(); ++page) {
    list += (list.empty() ? "" : ", ") + base::ToUtf8(ShortName(gui.GetPageName(page)));
  }
  return list;
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

const ICGUIObject* FindLiving(IGui& gui, const ICGUIObject* object) {
  if (object == nullptr) return nullptr;
  for (std::uint32_t page = 0; page < gui.GetPageCount(); ++page) {
    const auto& items = gui.GetPage(page)->items;
    if (std::ranges::find(items, object) != items.end()) return object;
  }
  return nullptr;
}

}  // namespace qen::host
