#include "base/whole_file.h"

#include <cerrno>
#include <string>
#include <utility>

#include "base/replacing.h"

namespace qen::base {

namespace fs = std::filesystem;

OpenedFile OpenFile(const fs::path& path, const char* mode) { return OpenedFile(OpenNamed(path, mode)); }

WholeFile::WholeFile(const fs::path& target, fs::path like) : target_(BehindLinks(target)), like_(std::move(like)) {
  const Present present = WhatIsAt(target_);
  if (present == Present::Fixed) return;
  if (present == Present::Replaceable) like_ = target_;
  if (target_.has_filename()) OpenPart();
}

WholeFile::~WholeFile() {
  file_.reset();
  if (!part_.empty()) Remove(part_);
}

// Under the first free name: what lies under the others may be someone's, or be written at this moment.
void WholeFile::OpenPart() {
  for (int number = 0; file_ == nullptr; ++number) {
    fs::path candidate = target_;
    candidate += ".part" + std::to_string(number);
    errno = 0;
    file_.reset(MakeNew(candidate));
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
  if (!like_.empty() && !KeepAccess(file_.get(), part_, like_)) return false;
  if (std::fflush(file_.get()) != 0 || !SyncToDisk(file_.get())) return false;
  if (std::fclose(file_.release()) != 0) return false;
  if (!MoveOver(part_, target_)) return false;
  part_.clear();
  return true;
}

}  // namespace qen::base
