// Here the module asks the system for the cursor and the window. So that tests can place both, the module's calls are
// led to the window of the recording engine.
#include <cstring>
#include <stdexcept>
#include <string>

#include "engine/platform.h"
#include "tests/module/gui_fixture.h"

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

template <class T>
T* At(void* library, DWORD_PTR offset) {
  return reinterpret_cast<T*>(static_cast<char*>(library) + offset);
}

// Where the module has the address of a function that it imports.
ULONGLONG& ImportedAddress(void* library, const std::string& function) {
  const auto* headers =
      At<IMAGE_NT_HEADERS>(library, static_cast<DWORD_PTR>(At<IMAGE_DOS_HEADER>(library, 0)->e_lfanew));
  const DWORD imports = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress;
  for (const auto* from = At<IMAGE_IMPORT_DESCRIPTOR>(library, imports); from->Name != 0; ++from) {
    const auto* names = At<IMAGE_THUNK_DATA>(library, from->OriginalFirstThunk);
    auto* entries = At<IMAGE_THUNK_DATA>(library, from->FirstThunk);
    for (; names->u1.AddressOfData != 0; ++names, ++entries) {
      if (IMAGE_SNAP_BY_ORDINAL(names->u1.Ordinal)) continue;
      if (At<IMAGE_IMPORT_BY_NAME>(library, names->u1.AddressOfData)->Name == function) return entries->u1.Function;
    }
  }
  throw std::runtime_error("the module does not import " + function);
}

template <class Function>
void Lead(void* library, const char* name, Function* system, Function* ofWindow) {
  ULONGLONG& address = ImportedAddress(library, name);
  DWORD protection = 0;
  VirtualProtect(&address, sizeof address, PAGE_READWRITE, &protection);
  address = reinterpret_cast<ULONGLONG>(window != nullptr ? ofWindow : system);
  VirtualProtect(&address, sizeof address, protection, &protection);
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
  window = fake;
  Lead(library_, "GetCursorPos", GetCursorPos, CursorOfWindow);
  Lead(library_, "SetCursorPos", SetCursorPos, PlaceCursorOfWindow);
  Lead(library_, "ScreenToClient", ScreenToClient, FromScreen);
  Lead(library_, "ClientToScreen", ClientToScreen, ToScreen);
  Lead(library_, "GetClientRect", GetClientRect, RectOfWindow);
}

}  // namespace qen::test
