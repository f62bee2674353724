#include "host/app/pages.h"

#include <algorithm>
#include <stdexcept>
#include <string>

#include "base/utf.h"
#include "engine/gui_page_object.h"
#include "engine/string_converter.h"

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

std::uint32_t PageByName(IGui& gui, StringView name) {
  if (const auto page = FindPageByName(gui, name)) return *page;
  std::string known;
  for (std::uint32_t page = 0; page < gui.GetPageCount(); ++page) {
    known += (known.empty() ? "" : ", ") + base::ToUtf8(ShortName(gui.GetPageName(page)));
  }
  throw std::runtime_error("there is no page " + base::ToUtf8(name) + ", only: " + known);
}

ICGUIAnim* FindPlayingAnim(IGui& gui) {
  for (std::uint32_t page = 0; page < gui.GetPageCount(); ++page) {
    if (ICGUIAnim* playing = gui.GetPage(page)->GetPlayingAnim()) return playing;
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
