// The registry of pages and the two lists.
#include <algorithm>

#include "commands/message_collector.h"
#include "engine/messages.h"
#include "engine/output.h"
#include "engine/system.h"
#include "formats/command_words.h"
#include "module/book_busy.h"
#include "pages/bag_page.h"
#include "pages/page.h"
#include "pages/page_camera.h"

namespace qen {
namespace {

bool Contains(const std::vector<std::uint32_t>& pages, std::uint32_t page) {
  return std::find(pages.begin(), pages.end(), page) != pages.end();
}

}  // namespace

bool CGUIBook::AddPage(const Char* pageFile, Camera* camera) {
  const Busy busy(*this);
  Register(std::make_unique<CGUIPage>(), pageFile, page_kind::kOrdinary, camera);
  // Every widget starts from its unhovered state.
  pages_.back()->Pick(nullptr, 0, 0, 0, 0, 0);
  return true;
}

bool CGUIBook::AddBagPage(const Char* bagFile, Camera* camera) {
  const Busy busy(*this);
  Register(std::make_unique<CGUIBagPage>(), bagFile, page_kind::kBag, camera);
  return true;
}

void CGUIBook::Register(std::unique_ptr<PageBase> page, const Char* file, std::uint32_t kind, Camera* camera) {
  viewport_ = nullptr;
  if (camera != nullptr) SetDefaultCamera(*camera);
  SimpleScene* scene = page->LoadPage(file, kind);
  if (scene != nullptr) {
    if (camera != nullptr) SetSceneCamera(*camera, *scene);
    scenes_.push_back(scene);
  }
  pages_.push_back(std::move(page));
  ready_ = true;
}

PageBase* CGUIBook::PageAt(std::int64_t page) const {
  return page >= 0 && static_cast<std::size_t>(page) < pages_.size() ? pages_[static_cast<std::size_t>(page)].get()
                                                                     : nullptr;
}

bool CGUIBook::SavePage(const Char* file, std::uint32_t page) {
  const Busy busy(*this);
  PageBase* found = PageAt(page);
  return found != nullptr && found->Save(file);
}

bool CGUIBook::FocusNext() {
  const Busy busy(*this);
  for (std::size_t i = 0; i < activePages_.size(); ++i) {
    if (PageBase* page = PageAt(activePages_[i])) page->FocusNext();
  }
  return true;
}

bool CGUIBook::FocusPrev() {
  const Busy busy(*this);
  for (std::size_t i = 0; i < activePages_.size(); ++i) {
    if (PageBase* page = PageAt(activePages_[i])) page->FocusPrev();
  }
  return true;
}

void CGUIBook::PostPageCommand(PageOperation operation, std::uint32_t page) {
  struct Entry {
    PageOperation operation;
    StringView word;
  };
  static constexpr std::array<Entry, 5> kWords{{{kSetPage, command::kSetPage},
                                                {kAddRender, command::kAddRenderPage},
                                                {kRemRender, command::kRemRenderPage},
                                                {kAddActive, command::kAddActivePage},
                                                {kRemActive, command::kRemActivePage}}};
  pageOperations_ = {};
  GuiMessage& record = pageOperations_[operation];
  record.command = kWords[operation].word;
  record.argument = PageName(page);
  record.page = GetPage(page);
  record.origin = 1;
  MessageCollector().Post(message::kCommand, record);
}

bool CGUIBook::AddRenderPage(std::uint32_t page) {
  PostPageCommand(kAddRender, page);
  return true;
}

bool CGUIBook::RemRenderPage(std::uint32_t page) {
  PostPageCommand(kRemRender, page);
  return true;
}

void CGUIBook::AddActivePage(std::uint32_t page) { PostPageCommand(kAddActive, page); }

void CGUIBook::RemActivePage(std::uint32_t page) { PostPageCommand(kRemActive, page); }

void CGUIBook::SetPage(std::uint32_t page) { PostPageCommand(kSetPage, page); }

String CGUIBook::PageName(std::uint32_t page) const {
  const PageBase* found = PageAt(page);
  return found != nullptr ? found->baseName : String();
}

String CGUIBook::GetPageFile(std::uint32_t page) {
  const PageBase* found = PageAt(page);
  return found != nullptr ? found->fileName : String();
}

std::uint32_t CGUIBook::GetPageCount() { return static_cast<std::uint32_t>(pages_.size()); }

ICGUIPageObject* CGUIBook::GetPage(std::uint32_t page) { return PageAt(page); }

std::vector<ICGUIObject*> CGUIBook::GetPageItems(std::uint32_t page) {
  const PageBase* found = PageAt(page);
  return found != nullptr ? found->items : std::vector<ICGUIObject*>();
}

std::int32_t CGUIBook::FindPage(String name) {
  if (name.empty()) return -1;  // pages that did not load have no name
  const auto found =
      std::find_if(pages_.begin(), pages_.end(), [&name](const auto& page) { return page->baseName == name; });
  return found != pages_.end() ? static_cast<std::int32_t>(found - pages_.begin()) : -1;
}

std::vector<ICGUIObject*> CGUIBook::FindObjects(String name) {
  std::vector<ICGUIObject*> found;
  for (const std::unique_ptr<PageBase>& page : pages_) page->AppendWidgets(name, found);
  return found;
}

std::uint8_t CGUIBook::SetQuiet(std::uint8_t quiet) {
  quiet_ = quiet != 0;
  return quiet;
}

std::vector<ICGUIAnim*>* CGUIBook::GetPageAnims(std::uint32_t page) {
  PageBase* found = PageAt(page);
  return found != nullptr ? &found->anims : nullptr;
}

bool CGUIBook::IsActivePage(std::uint32_t page) { return Contains(activePages_, page); }

bool CGUIBook::IsRenderPage(std::uint32_t page) { return Contains(renderPages_, page); }

Matrix4x4* CGUIBook::GetNodeMatrix(std::uint32_t page, const Char* node) {
  PageBase* found = PageAt(page);
  return found != nullptr ? found->FindNodeMatrix(node) : nullptr;
}

ICGUIObject* CGUIBook::FindObject(std::uint32_t page, const Char* name) {
  PageBase* found = PageAt(page);
  return found != nullptr ? found->FindItem(name) : nullptr;
}

}  // namespace qen
