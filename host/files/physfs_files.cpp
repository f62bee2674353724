#include "host/files/physfs_files.h"

#include <physfs.h>

#include <algorithm>
#include <memory>
#include <span>
#include <stdexcept>
#include <string>

#include "host/files/data_path.h"

namespace qen::host {
namespace {

const char* LastError() {
  const char* error = PHYSFS_getErrorByCode(PHYSFS_getLastErrorCode());
  return error == nullptr ? "unknown error" : error;
}

struct CloseFile {
  void operator()(PHYSFS_File* file) const { PHYSFS_close(file); }
};

// Whether a link in a folder leads to a file; those in archives lead nowhere else.
bool LeadsToFile(const std::string& path) {
  const std::filesystem::path place = PHYSFS_getRealDir(path.c_str());
  std::error_code problem;
  return !std::filesystem::is_directory(place, problem) ||
         std::filesystem::is_regular_file(place / path.substr(path.find('/') + 1), problem);
}

// Folders, and what is neither folder nor file, are refused before they are opened: that could wait for ever.
bool MayBeFile(const std::string& path) {
  PHYSFS_Stat stat;
  if (PHYSFS_stat(path.c_str(), &stat) == 0) return false;
  return stat.filetype == PHYSFS_FILETYPE_REGULAR || (stat.filetype == PHYSFS_FILETYPE_SYMLINK && LeadsToFile(path));
}

bool ReadWhole(const std::string& path, std::vector<std::uint8_t>& bytes) {
  if (!MayBeFile(path)) return false;
  const std::unique_ptr<PHYSFS_File, CloseFile> file(PHYSFS_openRead(path.c_str()));
  if (file == nullptr) return false;
  const PHYSFS_sint64 size = PHYSFS_fileLength(file.get());
  if (size < 0) return false;
  std::vector<std::uint8_t> content(static_cast<std::size_t>(size));
  if (PHYSFS_readBytes(file.get(), content.data(), content.size()) != size) return false;
  bytes = std::move(content);
  return true;
}

bool ReadFirst(std::span<const std::string> paths, std::vector<std::uint8_t>& bytes) {
  return std::ranges::any_of(paths, [&bytes](const std::string& path) { return ReadWhole(path, bytes); });
}

bool ReadFrom(FoldedTree& tree, std::span<const String> parts, std::vector<std::uint8_t>& bytes) {
  if (ReadWhole(tree.ExactPath(parts), bytes)) return true;
  const std::vector<std::string> found = tree.Find(parts);
  if (found.empty()) return false;
  if (ReadFirst(found, bytes)) return true;
  tree.Forget();  // what was listed has been renamed or removed
  return ReadFirst(tree.Find(parts), bytes);
}

std::string NameOf(const std::filesystem::path& place) {
  const std::u8string utf8 = place.u8string();
  return {utf8.begin(), utf8.end()};
}

// Each place has a root of its own in PhysicsFS, so that they can be searched one after the other.
std::string RootOf(std::size_t mount) { return std::to_string(mount); }

void MountAt(const std::string& root, const std::string& place) {
  if (PHYSFS_mount(place.c_str(), root.c_str(), 1) != 0) return;
  throw std::runtime_error("cannot read " + place + ": " + LastError());
}

}  // namespace

PhysfsFiles::PhysfsFiles() {
  if (PHYSFS_init(nullptr) == 0) throw std::runtime_error(std::string("no file system: ") + LastError());
  PHYSFS_permitSymbolicLinks(1);
}

PhysfsFiles::~PhysfsFiles() { PHYSFS_deinit(); }

void PhysfsFiles::Mount(const std::filesystem::path& place) {
  const std::string root = RootOf(mounts_.size());
  MountAt(root, NameOf(place));
  mounts_.push_back({place, FoldedTree(root)});
}

std::vector<std::filesystem::path> PhysfsFiles::Places() const {
  std::vector<std::filesystem::path> places;
  for (const MountedPlace& mount : mounts_) places.push_back(mount.place);
  return places;
}

void PhysfsFiles::OpenAnew() {
  for (std::size_t i = 0; i < mounts_.size(); ++i) {
    const std::string place = NameOf(mounts_[i].place);
    PHYSFS_unmount(place.c_str());
    mounts_[i].tree.Forget();
    MountAt(RootOf(i), place);
  }
}

bool PhysfsFiles::Read(StringView name, std::vector<std::uint8_t>& bytes) {
  const auto parts = SplitDataPath(name);
  if (!parts) return false;
  return std::any_of(mounts_.rbegin(), mounts_.rend(),
                     [&](MountedPlace& mount) { return ReadFrom(mount.tree, *parts, bytes); });
}

}  // namespace qen::host
