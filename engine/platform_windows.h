// The platform calls as Windows has them; included by platform.h alone. 16-bit strings are wide strings there.
#pragma once

#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>
// Behind windows.h.
#include <mmsystem.h>

#include <cstdint>
#include <cstdio>
#include <string>

#include "engine/system.h"
#include "engine/types.h"

namespace qen::platform {

using ::POINT;
using ::RECT;

static_assert(sizeof(wchar_t) == sizeof(Char));
inline const wchar_t* Wide(const Char* text) { return reinterpret_cast<const wchar_t*>(text); }

// The name as a system of any version takes it. Names that are too long for its older calls get the prefix that lifts
// the limit, which wants them whole.
inline std::wstring FileName(const Char* name) {
  constexpr std::size_t kLongestFolder = 247;  // a folder's name must leave room for 12 letters more
  std::wstring given = name == nullptr ? L"" : Wide(name);
  if (given.size() <= kLongestFolder || given.starts_with(L"\\\\?\\")) return given;
  const DWORD room = ::GetFullPathNameW(given.c_str(), 0, nullptr, nullptr);
  std::wstring whole(room, L'\0');
  whole.resize(::GetFullPathNameW(given.c_str(), room, whole.data(), nullptr));
  return whole.starts_with(L"\\\\") ? L"\\\\?\\UNC" + whole.substr(1) : L"\\\\?\\" + whole;
}

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
  return ::CopyFileW(FileName(from).c_str(), FileName(to).c_str(), failIfExists ? 1 : 0) != 0;
}
inline int _wmkdir(const Char* folder) { return ::_wmkdir(FileName(folder).c_str()); }
inline std::FILE* _wfopen(const Char* file, const Char* mode) { return ::_wfopen(FileName(file).c_str(), Wide(mode)); }

}  // namespace qen::platform
