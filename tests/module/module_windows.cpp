// Here the module asks the system for the cursor and the window. So that tests can place both, the module's calls are
// led to the window of the recording engine.
#include <stdexcept>
#include <string>

#include "tests/module/gui_fixture.h"
#include "tests/windows/imports.h"

namespace qen::test {
namespace {

base::FakeWindow* window = nullptr;

BOOL WINAPI CursorOfWindow(POINT* point) {
  *point = {window->cursor.x, window->cursor.y};
  return 1;
}

BOOL WINAPI PlaceCursorOfWindow(int x, int y) {
  window->cursor = {x, y};
  return 1;
}

BOOL WINAPI FromScreen(HWND, POINT* point) {
  *point = {point->x - window->origin.x, point->y - window->origin.y};
  return 1;
}

BOOL WINAPI ToScreen(HWND, POINT* point) {
  *point = {point->x + window->origin.x, point->y + window->origin.y};
  return 1;
}

BOOL WINAPI RectOfWindow(HWND, RECT* rect) {
  *rect = {0, 0, window->size.x, window->size.y};
  return 1;
}

template <class Function>
void Lead(void* library, const char* name, Function* to) {
  if (ReplaceImport(static_cast<HMODULE>(library), name, reinterpret_cast<void*>(to)) == nullptr)
    throw std::runtime_error(std::string("the module does not import ") + name);
}

}  // namespace

Module::Module() : library_(LoadLibraryA(GUI_MODULE_FILE)) {
  if (library_ == nullptr) throw std::runtime_error("cannot load " GUI_MODULE_FILE);
}

Module::~Module() { FreeLibrary(static_cast<HMODULE>(library_)); }

void* Module::Symbol(const char* name) const {
  const FARPROC symbol = GetProcAddress(static_cast<HMODULE>(library_), name);
  if (symbol == nullptr) throw std::runtime_error(name);
  return reinterpret_cast<void*>(symbol);
}

void Module::UseWindow(base::FakeWindow* fake) {
  if (fake != nullptr) {
    window = fake;
    Lead(library_, "GetCursorPos", CursorOfWindow);
    Lead(library_, "SetCursorPos", PlaceCursorOfWindow);
    Lead(library_, "ScreenToClient", FromScreen);
    Lead(library_, "ClientToScreen", ToScreen);
    Lead(library_, "GetClientRect", RectOfWindow);
  } else {
    Lead(library_, "GetCursorPos", GetCursorPos);
    Lead(library_, "SetCursorPos", SetCursorPos);
    Lead(library_, "ScreenToClient", ScreenToClient);
    Lead(library_, "ClientToScreen", ClientToScreen);
    Lead(library_, "GetClientRect", GetClientRect);
  }
}

}  // namespace qen::test
