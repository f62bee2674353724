// With the system's own calls: those of the C++ library do not take names with the prefix of long ones.
#define NOMINMAX
#define WIN32_LEAN_AND_MEAN
#include <fcntl.h>
#include <io.h>
#include <sys/stat.h>
#include <windows.h>

#include "base/replacing.h"
#include "base/whole_file.h"

namespace qen::base {

namespace fs = std::filesystem;

std::FILE* OpenNamed(const fs::path& path, const char* mode) {
  const std::string narrow = mode;
  return ::_wfopen(path.c_str(), std::wstring(narrow.begin(), narrow.end()).c_str());
}

// The C library's mode "x" is not known to its older versions, which then open what is there.
std::FILE* MakeNew(const fs::path& path) {
  const int made = ::_wopen(path.c_str(), _O_CREAT | _O_EXCL | _O_WRONLY | _O_BINARY, _S_IREAD | _S_IWRITE);
  if (made < 0) return nullptr;
  std::FILE* file = ::_fdopen(made, "wb");
  if (file == nullptr) ::_close(made);
  return file;
}

fs::path BehindLinks(const fs::path& path) {
  const HANDLE file = ::CreateFileW(path.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
  if (file == INVALID_HANDLE_VALUE) return path;
  std::wstring real(::GetFinalPathNameByHandleW(file, nullptr, 0, 0), L'\0');
  real.resize(::GetFinalPathNameByHandleW(file, real.data(), static_cast<DWORD>(real.size()), 0));
  ::CloseHandle(file);
  return real.empty() ? path : fs::path(real);
}

Present WhatIsAt(const fs::path& path) {
  const DWORD attributes = ::GetFileAttributesW(path.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) return Present::Nothing;
  const bool replaceable =
      (attributes & (FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_DIRECTORY)) == 0 && OpenFile(path, "r+b") != nullptr;
  return replaceable ? Present::Replaceable : Present::Fixed;
}

// Who may open it comes with the folder.
bool KeepAccess(std::FILE*, const fs::path& path, const fs::path& like) {
  constexpr DWORD kKept = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;
  const DWORD attributes = ::GetFileAttributesW(like.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) return false;
  return (attributes & kKept) == 0 || ::SetFileAttributesW(path.c_str(), attributes & kKept) != 0;
}

bool Truncate(std::FILE* file, std::size_t size) {
  return ::_chsize_s(::_fileno(file), static_cast<long long>(size)) == 0;
}

bool SyncToDisk(std::FILE* file) { return ::_commit(::_fileno(file)) == 0; }

bool MoveOver(const fs::path& from, const fs::path& to) {
  return ::MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
}

void Remove(const fs::path& path) { ::DeleteFileW(path.c_str()); }

}  // namespace qen::base
