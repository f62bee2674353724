#include "host/files/file_watch_polling.h"

#include <condition_variable>
#include <functional>
#include <mutex>
#include <string>
#include <utility>

#include "host/files/watched_files.h"

namespace qen::host {
namespace {

namespace fs = std::filesystem;

// Differs when any of what is known of the file differs. Sums of these do not depend on the order of the files.
std::uint64_t MarkOf(const fs::directory_entry& file) {
  std::error_code gone;
  const auto size = file.file_size(gone);
  const auto time = file.last_write_time(gone).time_since_epoch().count();
  return std::hash<std::string>{}(file.path().string() + '\n' + std::to_string(size) + '\n' + std::to_string(time));
}

}  // namespace

PollingWatch::PollingWatch(std::vector<fs::path> places, std::chrono::milliseconds quietTime)
    : places_(std::move(places)),
      quietTime_(quietTime),
      thread_([this, known = Look({})](const std::stop_token& stop) { LookUntil(stop, known); }) {}

void PollingWatch::LookUntil(const std::stop_token& stop, std::uint64_t known) {
  std::mutex mutex;
  std::condition_variable_any wake;
  std::unique_lock lock(mutex);
  std::uint64_t last = known;
  while (!wake.wait_for(lock, stop, quietTime_, [&stop] { return stop.stop_requested(); })) {
    const std::uint64_t before = std::exchange(last, Look(stop));
    if (last == known || last != before) continue;
    known = last;
    changed_ = true;
  }
}

std::uint64_t PollingWatch::Look(const std::stop_token& stop) const {
  std::uint64_t sum = 0;
  for (const fs::path& place : places_) {
    VisitFiles(
        place, [&stop](const fs::path&) { return !stop.stop_requested(); },
        [&sum](const fs::directory_entry& file) { sum += MarkOf(file); });
  }
  return sum;
}

}  // namespace qen::host
