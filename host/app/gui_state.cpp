#include "host/app/gui_state.h"

#include "engine/gui_page_object.h"
#include "engine/gui_widgets.h"
#include "engine/item_info.h"

namespace qen::host {
namespace {

std::vector<String> NamesOf(IGui& gui, const std::vector<std::uint32_t>& pages) {
  std::vector<String> names;
  names.reserve(pages.size());
  for (const std::uint32_t page : pages) names.push_back(gui.GetPageName(page));
  return names;
}

std::vector<std::uint32_t> PagesNamed(IGui& gui, const std::vector<String>& names) {
  std::vector<std::uint32_t> pages;
  for (const String& name : names) {
    const std::int32_t page = gui.FindPage(name);
    if (page >= 0) pages.push_back(static_cast<std::uint32_t>(page));
  }
  return pages;
}

}  // namespace

GuiState::GuiState(IGui& gui)
    : language_(gui.GetLanguage()),
      active_(NamesOf(gui, gui.GetActivePages())),
      rendered_(NamesOf(gui, gui.GetRenderPages())) {
  for (std::uint32_t page = 0; page < gui.GetPageCount(); ++page) {
    const ICGUIPageObject& object = *gui.GetPage(page);
    for (ICGUIObject* widget : object.items) {
      widgets_.insert_or_assign({object.baseName, widget->info->name}, Remember(*widget));
    }
  }
}

GuiState::Widget GuiState::Remember(ICGUIObject& widget) {
  Widget kept{widget.info->checked, widget.info->position, {}, {}};
  if (auto* text = dynamic_cast<ICGUIText*>(&widget)) kept.edited = text->GetEditText();
  if (auto* list = dynamic_cast<ICGUIList*>(&widget)) list->GetSelectedIndices(kept.selected);
  return kept;
}

void GuiState::Restore(IGui& gui) const {
  gui.SetLanguage(language_);
  for (std::uint32_t page = 0; page < gui.GetPageCount(); ++page) {
    const ICGUIPageObject& object = *gui.GetPage(page);
    for (ICGUIObject* widget : object.items) {
      const auto kept = widgets_.find({object.baseName, widget->info->name});
      if (kept != widgets_.end()) PutBack(kept->second, *widget);
    }
  }
  gui.GetActivePages() = PagesNamed(gui, active_);
  gui.GetRenderPages() = PagesNamed(gui, rendered_);
  for (const std::uint32_t page : gui.GetRenderPages()) gui.GetPage(page)->Disable(false);
}

void GuiState::PutBack(const Widget& kept, ICGUIObject& widget) {
  widget.info->checked = kept.checked;
  widget.info->position = kept.position;
  if (auto* text = dynamic_cast<ICGUIText*>(&widget)) text->GetEditText() = kept.edited;
  auto* list = dynamic_cast<ICGUIList*>(&widget);
  if (list == nullptr) return;
  for (std::uint32_t i = 0; i < list->GetItemCount(); ++i) list->GetItem(i)->selected = 0;
  for (const std::uint32_t index : kept.selected) {
    if (ICGUIItem* item = list->GetItem(index)) item->selected = 1;
  }
}

}  // namespace qen::host
