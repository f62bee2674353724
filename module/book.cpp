#include "module/book.h"

#include <algorithm>
#include <iterator>

#include "commands/message_collector.h"
#include "definitions/language_table.h"
#include "module/book_busy.h"
#include "pages/page_base.h"
#include "widgets/text_source.h"

namespace qen {

CGUIBook::CGUIBook() {
  MessageCollector().SetPageLists(this);
  SetTextSource(&ModuleLanguageTable());
}

CGUIBook::~CGUIBook() { MessageCollector().SetPageLists(nullptr); }

bool CGUIBook::IsBusy() const {
  const auto isUnloading = [](const auto& page) { return page->IsUnloading(); };
  return busy_ > 0 || MessageCollector().IsDelivering() || std::ranges::any_of(pages_, isUnloading) ||
         std::ranges::any_of(retired_, isUnloading);
}

void CGUIBook::Release() {
  const Busy busy(*this);
  renderPages_.clear();
  activePages_.clear();
  for (std::unique_ptr<PageBase>& page : pages_) retired_.push_back(std::move(page));
  pages_.clear();
  scenes_.clear();
  ready_ = false;
  if (busy_ == 1) DeleteRetired();
  if (!pages_.empty()) return;  // somebody who heard of it has loaded others
  renderPages_.clear();
  activePages_.clear();
  ModuleLanguageTable().Clear();
  style_.DestroyFont();
}

void CGUIBook::DeleteRetired() {
  // Those who hear of an unloading may release more.
  for (auto pages = TakeRetired(); !pages.empty(); pages = TakeRetired()) {
    for (const std::unique_ptr<PageBase>& page : pages) page->Unload();
  }
}

// But for those whose unloading the game began itself: they wait for the next time.
std::vector<std::unique_ptr<PageBase>> CGUIBook::TakeRetired() {
  const auto idle =
      std::stable_partition(retired_.begin(), retired_.end(), [](const auto& page) { return page->IsUnloading(); });
  std::vector<std::unique_ptr<PageBase>> taken(std::make_move_iterator(idle), std::make_move_iterator(retired_.end()));
  retired_.erase(idle, retired_.end());
  return taken;
}

void CGUIBook::Reset() {
  MessageCollector().Clear();
  renderPages_.clear();
  activePages_.clear();
}

}  // namespace qen
