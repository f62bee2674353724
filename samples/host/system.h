// What each system has its own way for: libraries that are loaded at run time, and the window.
#pragma once

#if defined(_WIN32)
#include <windows.h>
#else
#include <dlfcn.h>
#endif

#include "engine/system.h"

#if defined(_WIN32)

inline void* LoadModule(const char* file) { return LoadLibraryA(file); }
inline void* FindFunction(void* module, const char* name) {
  return reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(module), name));
}
inline void UnloadModule(void* module) { FreeLibrary(static_cast<HMODULE>(module)); }

// The module asks the system for its client area and for the cursor in it.
inline void OpenWindow(int width, int height) {
  qen::System::SetMainWindowHandle(CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 50, 50, width, height,
                                                   nullptr, nullptr, nullptr, nullptr));
}

#else

inline void* LoadModule(const char* file) { return dlopen(file, RTLD_NOW | RTLD_LOCAL); }
inline void* FindFunction(void* module, const char* name) { return dlsym(module, name); }
inline void UnloadModule(void* module) { dlclose(module); }

// The module asks the engine, which has a window of its own.
inline void OpenWindow(int, int) {}

#endif
