#include <sys/stat.h>
#include <unistd.h>

#include <system_error>

#include "base/replacing.h"
#include "base/whole_file.h"

namespace qen::base {
namespace {

namespace fs = std::filesystem;

// So that a file that an administrator saves stays its user's. Only they may do so; for others it does not matter.
void KeepOwner(std::FILE* file, const fs::path& like) {
  struct stat wanted {};
  struct stat made {};
  if (::stat(like.c_str(), &wanted) != 0 || ::fstat(::fileno(file), &made) != 0) return;
  if (wanted.st_uid == made.st_uid && wanted.st_gid == made.st_gid) return;
  [[maybe_unused]] const int ignored = ::fchown(::fileno(file), wanted.st_uid, wanted.st_gid);
}

// Makes the new name last. Not every file system can, and the file is in place by now.
void SyncFolder(const fs::path& folder) {
  if (const OpenedFile opened = OpenFile(folder.empty() ? "." : folder, "rb")) SyncToDisk(opened.get());
}

}  // namespace

std::FILE* OpenNamed(const fs::path& path, const char* mode) { return std::fopen(path.c_str(), mode); }

std::FILE* MakeNew(const fs::path& path) { return std::fopen(path.c_str(), "wbx"); }

fs::path BehindLinks(const fs::path& path) {
  std::error_code error;
  fs::path real = fs::canonical(path, error);
  if (!error) return real;
  const fs::path link = fs::read_symlink(path, error);
  return error ? path : path.parent_path() / link;
}

// A file that nobody may write is meant to stay as it is, also for those whom permissions do not stop.
Present WhatIsAt(const fs::path& path) {
  constexpr fs::perms kAnyWrite = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
  std::error_code error;
  const fs::file_status status = fs::status(path, error);
  if (!fs::exists(status)) return Present::Nothing;
  const bool replaceable = fs::is_regular_file(status) && (status.permissions() & kAnyWrite) != fs::perms::none &&
                           OpenFile(path, "r+b") != nullptr;
  return replaceable ? Present::Replaceable : Present::Fixed;
}

bool KeepAccess(std::FILE* file, const fs::path& path, const fs::path& like) {
  KeepOwner(file, like);
  std::error_code error;
  const fs::perms wanted = fs::status(like, error).permissions();
  if (error) return false;
  // Where all files have the same, there may be no way to set them.
  if (fs::status(path, error).permissions() == wanted) return true;
  fs::permissions(path, wanted, error);
  return !error;
}

bool Truncate(std::FILE* file, std::size_t size) { return ::ftruncate(::fileno(file), static_cast<off_t>(size)) == 0; }

bool SyncToDisk(std::FILE* file) { return ::fsync(::fileno(file)) == 0; }

bool MoveOver(const fs::path& from, const fs::path& to) {
  std::error_code error;
  fs::rename(from, to, error);
  if (error) return false;
  SyncFolder(to.parent_path());
  return true;
}

void Remove(const fs::path& path) {
  std::error_code ignored;
  fs::remove(path, ignored);
}

}  // namespace qen::base
