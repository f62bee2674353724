// The platform calls that modules may make, under their system names and with 16-bit strings. On Windows they are the
// system's own; elsewhere the engine library carries them out.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>

#include "engine/system.h"
#include "engine/types.h"

#if defined(_WIN32)
#include "engine/platform_windows.h"
#endif

namespace qen::platform {

#if !defined(_WIN32)

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
// that at every moment the old file or the new one is whole. Permissions, owner and links stay. Where only the file may
// be written and not its folder, writes into it. False, with the old one in place, when any of it fails or the old one
// is read-only.
QEN_API bool SaveWholeFile(const Char* file, const void* bytes, std::size_t size);

}  // namespace qen::platform
