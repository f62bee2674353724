// Notices changes of files on the disk.
#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <vector>

namespace qen::host {

// Looks at names, sizes and times of all files below some folders; a place that is a file is looked at itself. Backups
// and files that are being written are left out. Without places nothing ever changes.
class FileWatch {
 public:
  explicit FileWatch(std::vector<std::filesystem::path> places);

  // True once after files have changed and then been left alone for a moment. Looks at the disk twice a second at most.
  bool HasChanged();

 private:
  using Clock = std::chrono::steady_clock;

  [[nodiscard]] std::uint64_t Look() const;

  std::vector<std::filesystem::path> places_;
  std::uint64_t known_;
  std::uint64_t last_;
  Clock::time_point nextLook_;
};

}  // namespace qen::host
