// The module's entry points.
#include <memory>
#include <new>

#include "engine/gui_module.h"
#include "engine/messages.h"
#include "engine/msg_daemon.h"
#include "engine/output.h"
#include "engine/system.h"
#include "module/book.h"

#if defined(_WIN32)
#define GUI_EXPORT extern "C" __declspec(dllexport)
#else
#define GUI_EXPORT extern "C" __attribute__((visibility("default")))
#endif

namespace {

// Owned between ActivateDll and DeactivateDll. Not freed at exit: the engine may be gone by then.
qen::CGUIBook* book = nullptr;

}  // namespace

GUI_EXPORT std::uint32_t QueryInterfaceType() { return qen::kGuiInterfaceType; }

GUI_EXPORT const qen::Char* QueryDescriptionString() { return u"Gui 1.0"; }

GUI_EXPORT qen::IGui* ActivateDll() {
  if (book != nullptr) return book;
  try {
    book = std::make_unique<qen::CGUIBook>().release();
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
  if (qen::System::daemon != nullptr) qen::System::daemon->AddHandler(book, qen::category::kGui);
  return book;
}

GUI_EXPORT void DeactivateDll() {
  if (book != nullptr && book->IsBusy()) {
    if (qen::System::output != nullptr) qen::System::output->PrintError(u"Gui is busy: not deactivated\n");
    return;
  }
  if (qen::System::daemon != nullptr) qen::System::daemon->RemoveHandler(book, qen::category::kAll);
  const std::unique_ptr<qen::CGUIBook> owned(book);
  if (owned) owned->Release();
  book = nullptr;
}
