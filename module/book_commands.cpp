// The commands that the book carries out itself.
#include <algorithm>

#include "commands/live_objects.h"
#include "engine/gui_widgets.h"
#include "engine/item_info.h"
#include "formats/command_words.h"
#include "module/book_busy.h"
#include "pages/page_base.h"

namespace qen {
namespace {

bool Erase(std::vector<std::uint32_t>& pages, std::int32_t page) {
  const auto found = std::find(pages.begin(), pages.end(), static_cast<std::uint32_t>(page));
  if (page < 0 || found == pages.end()) return false;
  pages.erase(found);
  return true;
}

void Invert(ICGUIObject& target, const GuiMessage& record) {
  if (record.source != nullptr) target.info->checked = record.source->info->checked == 0 ? 1 : 0;
}

void ChooseOne(ICGUIObject& target, const GuiMessage& record) {
  if (record.source == nullptr) return;
  if (record.source->info->checked == 0) record.source->info->checked = 1;
  target.info->checked = 0;
}

void Show(ICGUIObject& target, const GuiMessage& record) { target.info->visible = record.value != 0 ? 1 : 0; }

void Hide(ICGUIObject& target, const GuiMessage& record) { target.info->visible = record.value != 0 ? 0 : 1; }

void Disable(ICGUIObject& target, const GuiMessage& record) { target.info->disabled = record.value != 0 ? 1 : 0; }

void SetText(ICGUIObject& target, const GuiMessage& record) {
  auto* text = target.info->type == widget_type::kText ? dynamic_cast<ICGUIText*>(&target) : target.text;
  if (text != nullptr) text->GetTextId() = record.value;
}

struct WidgetCommand {
  StringView word;
  void (*carryOut)(ICGUIObject& target, const GuiMessage& record);
};

constexpr std::array<WidgetCommand, 6> kWidgetCommands{{
    {command::kToggleChecked, Invert},
    {command::kRadioGroup, ChooseOne},
    {command::kShow, Show},
    {command::kHide, Hide},
    {command::kDisable, Disable},
    {command::kSetText, SetText},
}};

}  // namespace

void CGUIBook::CarryOut(GuiMessage& record) {
  struct PageCommand {
    StringView word;
    void (CGUIBook::*carryOut)(const String& name);  // null: empties the render pages
    bool takesSnapshot;
  };
  static constexpr std::array<PageCommand, 5> kPageCommands{{
      {command::kRemoveAllFromRender, nullptr, false},
      {command::kAddRenderPage, &CGUIBook::AddRenderPageNamed, true},
      {command::kRemRenderPage, &CGUIBook::RemRenderPageNamed, true},
      {command::kAddActivePage, &CGUIBook::AddActivePageNamed, true},
      {command::kRemActivePage, &CGUIBook::RemActivePageNamed, true},
  }};

  if (IsAlive(record.page) && record.page->GetPlayingAnim() != nullptr) return;
  if (record.command == command::kUndoPage) return;
  const auto* found = std::find_if(kPageCommands.begin(), kPageCommands.end(), [&record](const PageCommand& candidate) {
    return candidate.word == record.command;
  });
  if (found == kPageCommands.end()) return CarryOutOnWidgets(record);
  if (record.snapshot != 0 && found->takesSnapshot) undoStack_.emplace_back(activePages_, renderPages_);
  if (found->carryOut == nullptr) {
    renderPages_.clear();
  } else {
    const Busy busy(*this);
    (this->*found->carryOut)(record.argument);
  }
  record.handled = 1;
}

void CGUIBook::AddRenderPageNamed(const String& name) {
  const std::int32_t index = FindPage(name);
  PageBase* page = PageAt(index);
  if (page == nullptr) return;
  renderPages_.push_back(static_cast<std::uint32_t>(index));
  page->Disable(false);
}

void CGUIBook::RemRenderPageNamed(const String& name) {
  const std::int32_t index = FindPage(name);
  if (Erase(renderPages_, index)) PageAt(index)->Disable(true);
}

void CGUIBook::AddActivePageNamed(const String& name) {
  const std::int32_t index = FindPage(name);
  PageBase* page = PageAt(index);
  if (page == nullptr) return;
  if (!quiet_) {
    page->PlayAnim(page->animIn, false);
    page->PlaySound(page, sound_kind::kAnimIn);
  }
  activePages_.push_back(static_cast<std::uint32_t>(index));
}

void CGUIBook::RemActivePageNamed(const String& name) {
  const std::int32_t index = FindPage(name);
  PageBase* page = PageAt(index);
  if (page == nullptr) return;
  if (!quiet_) {
    page->PlayAnim(page->animOut, false);
    page->PlaySound(page, sound_kind::kAnimOut);
  }
  Erase(activePages_, index);
}

void CGUIBook::CarryOutOnWidgets(GuiMessage& record) {
  const auto* found =
      std::find_if(kWidgetCommands.begin(), kWidgetCommands.end(),
                   [&record](const WidgetCommand& candidate) { return candidate.word == record.command; });
  if (found == kWidgetCommands.end()) return;
  if (!IsAlive(record.source)) record.source = nullptr;
  for (ICGUIObject* target : FindObjects(record.argument)) found->carryOut(*target, record);
  record.handled = 1;
}

}  // namespace qen
