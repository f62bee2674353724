#include "module/book.h"

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

bool CGUIBook::IsBusy() const { return busy_ > 0 || MessageCollector().IsDelivering(); }

void CGUIBook::Release() {
  const Busy busy(*this);
  renderPages_.clear();
  activePages_.clear();
  for (std::unique_ptr<PageBase>& page : pages_) retired_.push_back(std::move(page));
  pages_.clear();
  if (busy_ == 1) DeleteRetired();
  ready_ = false;
  scenes_.clear();
  renderPages_.clear();
  activePages_.clear();
  ModuleLanguageTable().Clear();
  style_.DestroyFont();
}

void CGUIBook::DeleteRetired() {
  const std::vector<std::unique_ptr<PageBase>> pages = std::move(retired_);
  retired_.clear();
  for (const std::unique_ptr<PageBase>& page : pages) page->Unload();
}

void CGUIBook::Reset() {
  MessageCollector().Clear();
  renderPages_.clear();
  activePages_.clear();
}

}  // namespace qen
