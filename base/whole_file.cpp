#include "base/whole_file.h"

#include <cerrno>
#include <string>
#include <utility>

#include "base/replacing.h"
#include "base/write_in_place.h"

namespace qen::base {

namespace fs = std::filesystem;

namespace {

bool IsRefusal(int error) { return error == EACCES || error == EPERM || error == EROFS; }

}  // namespace

OpenedFile OpenFile(const fs::path& path, const char* mode) { return OpenedFile(OpenNamed(path, mode)); }

WholeFile::WholeFile(const fs::path& target, fs::path like) : target_(BehindLinks(target)), like_(std::move(like)) {
  const Present present = WhatIsAt(target_);
  if (present == Present::Fixed) return;
  if (present == Present::Replaceable) like_ = target_;
  const int error = target_.has_filename() ? OpenPart() : 0;
  inPlace_ = present == Present::Replaceable && IsRefusal(error);
}

WholeFile::~WholeFile() {
  file_.reset();
  if (!part_.empty()) Remove(part_);
}

// Under the first free name: what lies under the others may be someone's, or be written at this moment. Returns the
// system's error, 0 for none.
int WholeFile::OpenPart() {
  for (int number = 0;; ++number) {
    fs::path candidate = target_;
    candidate += ".part" + std::to_string(number);
    errno = 0;
    file_.reset(MakeNew(candidate));
    if (file_ == nullptr && errno == EEXIST) continue;
    if (file_ == nullptr) return errno;
    part_ = candidate;
    return 0;
  }
}

bool WholeFile::Write(const void* bytes, std::size_t size) {
  if (inPlace_) {
    const auto* begin = static_cast<const char*>(bytes);
    content_.insert(content_.end(), begin, begin + size);
    return true;
  }
  if (file_ != nullptr && std::fwrite(bytes, 1, size, file_.get()) != size) file_.reset();
  return file_ != nullptr;
}

bool WholeFile::PutInPlace() {
  if (inPlace_) return WriteInPlace(target_, content_);
  if (file_ == nullptr) return false;
  if (!like_.empty() && !KeepAccess(file_.get(), part_, like_)) return false;
  if (std::fflush(file_.get()) != 0 || !SyncToDisk(file_.get())) return false;
  if (std::fclose(file_.release()) != 0) return false;
  if (!MoveOver(part_, target_)) return false;
  part_.clear();
  return true;
}

}  // namespace qen::base
