// Notices changes of files on the disk.
#pragma once

#include <chrono>
#include <filesystem>
#include <memory>
#include <vector>

namespace qen::host {

// Looks after all files below some folders; a place that is a file is looked after itself. Backups and files that are
// being written are left out. Without places nothing ever changes.
class FileWatch {
 public:
  FileWatch() = default;
  virtual ~FileWatch() = default;
  FileWatch(const FileWatch&) = delete;
  FileWatch& operator=(const FileWatch&) = delete;

  // True once after files have changed and then been left alone for the quiet time. Made to be asked in every frame:
  // costs next to nothing while nothing changes.
  virtual bool HasChanged() = 0;
};

inline constexpr std::chrono::milliseconds kQuietTime{500};

// In the best way that the system has. What is there now counts as known.
std::unique_ptr<FileWatch> WatchFiles(std::vector<std::filesystem::path> places,
                                      std::chrono::milliseconds quietTime = kQuietTime);

}  // namespace qen::host
