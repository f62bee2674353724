// The platform calls that modules may make, under their system names and with 16-bit strings. On Windows they are the
// system's own; elsewhere the engine library carries them out.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>

#include "engine/system.h"
#include "engine/types.h"

#if defined(_WIN32)
#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>
// Behind windows.h.
#include <mmsystem.h>
#endif

namespace qen::platform {

#if defined(_WIN32)

using ::POINT;
using ::RECT;

inline const wchar_t* Wide(const Char* text) { return reinterpret_cast<const wchar_t*>(text); }

inline bool GetCursorPos(POINT* point) { return ::GetCursorPos(point) != 0; }
inline bool SetCursorPos(int x, int y) { return ::SetCursorPos(x, y) != 0; }
inline bool ScreenToClient(WindowHandle window, POINT* point) {
  return ::ScreenToClient(static_cast<HWND>(window), point) != 0;
}
inline bool ClientToScreen(WindowHandle window, POINT* point) {
  return ::ClientToScreen(static_cast<HWND>(window), point) != 0;
}
inline bool GetClientRect(WindowHandle window, RECT* rect) {
  return ::GetClientRect(static_cast<HWND>(window), rect) != 0;
}
inline std::uint32_t timeGetTime() { return ::timeGetTime(); }
inline bool CopyFileW(const Char* from, const Char* to, bool failIfExists) {
  return ::CopyFileW(Wide(from), Wide(to), failIfExists ? 1 : 0) != 0;
}
inline int _wmkdir(const Char* folder) { return ::_wmkdir(Wide(folder)); }
inline std::FILE* _wfopen(const Char* file, const Char* mode) { return ::_wfopen(Wide(file), Wide(mode)); }

#else

struct POINT {
  std::int32_t x = 0;
  std::int32_t y = 0;
};

struct RECT {
  std::int32_t left = 0;
  std::int32_t top = 0;
  std::int32_t right = 0;
  std::int32_t bottom = 0;
};

// All return false, leaving their result unchanged, when there is no window (or the file operation fails).
QEN_API bool GetCursorPos(POINT* point);  // screen pixels
QEN_API bool SetCursorPos(int x, int y);
QEN_API bool ScreenToClient(WindowHandle window, POINT* point);
QEN_API bool ClientToScreen(WindowHandle window, POINT* point);
QEN_API bool GetClientRect(WindowHandle window, RECT* rect);
QEN_API std::uint32_t timeGetTime();                                          // milliseconds, wraps
QEN_API bool CopyFileW(const Char* from, const Char* to, bool failIfExists);  // safe like SaveWholeFile
QEN_API int _wmkdir(const Char* folder);                         // 0, or -1 when it exists or cannot be made
QEN_API std::FILE* _wfopen(const Char* file, const Char* mode);  // null on failure

#endif

// Not the system's: writes a whole file beside its place, flushes it to the disk and renames it over what was there, so
// that at every moment the old file or the new one is whole. Permissions, owner and links stay. False, with the old one
// in place, when any of it fails or the old one is read-only.
QEN_API bool SaveWholeFile(const Char* file, const void* bytes, std::size_t size);

}  // namespace qen::platform
