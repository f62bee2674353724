// A watch of files for every system.
#pragma once

#include <atomic>
#include <cstdint>
#include <stop_token>
#include <thread>

#include "host/files/file_watch.h"

namespace qen::host {

// Looks at names, sizes and times of all files, again and again, in a thread of its own.
class PollingWatch final : public FileWatch {
 public:
  PollingWatch(std::vector<std::filesystem::path> places, std::chrono::milliseconds quietTime);

  bool HasChanged() override { return changed_.exchange(false); }

 private:
  void LookUntil(const std::stop_token& stop, std::uint64_t known);
  [[nodiscard]] std::uint64_t Look(const std::stop_token& stop) const;

  std::vector<std::filesystem::path> places_;
  std::chrono::milliseconds quietTime_;
  std::atomic<bool> changed_ = false;
  std::jthread thread_;  // last: it uses the others
};

}  // namespace qen::host
