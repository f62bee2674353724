#include "base/whole_file.h"

#include <cerrno>
#include <string>
#include <system_error>
#include <utility>

#if defined(_WIN32)
#include <io.h>
#else
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace qen::base {
namespace {

namespace fs = std::filesystem;

#if defined(_WIN32)

bool SyncToDisk(std::FILE* file) { return ::_commit(::_fileno(file)) == 0; }
void SyncFolder(const fs::path&) {}  // the system does
void KeepOwner(std::FILE*, const fs::path&) {}

#else

bool SyncToDisk(std::FILE* file) { return ::fsync(::fileno(file)) == 0; }

// Makes the new name last. Not every file system can, and the file is in place by now.
void SyncFolder(const fs::path& folder) {
  if (const OpenedFile opened = OpenFile(folder.empty() ? "." : folder, "rb")) SyncToDisk(opened.get());
}

// So that a file that an administrator saves stays its user's. Only they may do so; for others it does not matter.
void KeepOwner(std::FILE* file, const fs::path& like) {
  struct stat wanted {};
  struct stat made {};
  if (::stat(like.c_str(), &wanted) != 0 || ::fstat(::fileno(file), &made) != 0) return;
  if (wanted.st_uid == made.st_uid && wanted.st_gid == made.st_gid) return;
  [[maybe_unused]] const int ignored = ::fchown(::fileno(file), wanted.st_uid, wanted.st_gid);
}

#endif

bool KeepPermissions(const fs::path& file, const fs::path& like) {
  std::error_code error;
  const fs::perms wanted = fs::status(like, error).permissions();
  if (error) return false;
  // Where all files have the same, there may be no way to set them.
  if (fs::status(file, error).permissions() == wanted) return true;
  fs::permissions(file, wanted, error);
  return !error;
}

// A file that nobody may write is meant to stay as it is, also for those whom permissions do not stop.
bool MayBeReplaced(const fs::path& file, const fs::file_status& status) {
  constexpr fs::perms kAnyWrite = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
  return fs::is_regular_file(status) && (status.permissions() & kAnyWrite) != fs::perms::none &&
         OpenFile(file, "r+b") != nullptr;
}

// What a link leads to, also when that is not there yet, so that the link stays one.
fs::path BehindLinks(const fs::path& path) {
  std::error_code error;
  fs::path real = fs::canonical(path, error);
  if (!error) return real;
  const fs::path link = fs::read_symlink(path, error);
  return error ? path : path.parent_path() / link;
}

}  // namespace

OpenedFile OpenFile(const fs::path& path, const char* mode) {
#if defined(_WIN32)
  return OpenedFile(::_wfopen(path.c_str(), fs::path(mode).c_str()));
#else
  return OpenedFile(std::fopen(path.c_str(), mode));
#endif
}

WholeFile::WholeFile(const fs::path& target, fs::path like) : target_(BehindLinks(target)), like_(std::move(like)) {
  std::error_code error;
  const fs::file_status status = fs::status(target_, error);
  if (fs::exists(status)) {
    if (!MayBeReplaced(target_, status)) return;
    like_ = target_;
  }
  if (target_.has_filename()) OpenPart();
}

WholeFile::~WholeFile() {
  file_.reset();
  std::error_code ignored;
  if (!part_.empty()) fs::remove(part_, ignored);
}

// Under the first free name: what lies under the others may be someone's, or be written at this moment.
void WholeFile::OpenPart() {
  for (int number = 0; file_ == nullptr; ++number) {
    fs::path candidate = target_;
    candidate += ".part" + std::to_string(number);
    errno = 0;
    file_ = OpenFile(candidate, "wbx");
    if (file_ != nullptr) part_ = candidate;
    if (file_ == nullptr && errno != EEXIST) return;
  }
}

bool WholeFile::Write(const void* bytes, std::size_t size) {
  if (file_ != nullptr && std::fwrite(bytes, 1, size, file_.get()) != size) file_.reset();
  return file_ != nullptr;
}

bool WholeFile::PutInPlace() {
  if (file_ == nullptr) return false;
  if (!like_.empty()) {
    KeepOwner(file_.get(), like_);
    if (!KeepPermissions(part_, like_)) return false;
  }
  if (std::fflush(file_.get()) != 0 || !SyncToDisk(file_.get())) return false;
  if (std::fclose(file_.release()) != 0) return false;
  std::error_code error;
  fs::rename(part_, target_, error);
  if (error) return false;
  part_.clear();
  SyncFolder(target_.parent_path());
  return true;
}

}  // namespace qen::base
