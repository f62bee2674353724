#include "host/app/file_watch.h"

#include <functional>
#include <string>
#include <utility>

namespace qen::host {
namespace {

namespace fs = std::filesystem;

constexpr std::chrono::milliseconds kPause{500};

bool IsLeftOut(const fs::path& file) {
  return file.parent_path().filename() == "bak" || file.filename().string().find(".part") != std::string::npos;
}

// Differs when any of what is known of the file differs. Sums of these do not depend on the order of the files.
std::uint64_t MarkOf(const fs::path& file) {
  std::error_code problem;
  const auto size = fs::file_size(file, problem);
  const auto time = fs::last_write_time(file, problem).time_since_epoch().count();
  return std::hash<std::string>{}(file.string() + '\n' + std::to_string(size) + '\n' + std::to_string(time));
}

}  // namespace

FileWatch::FileWatch(std::vector<fs::path> places)
    : places_(std::move(places)), known_(Look()), last_(known_), nextLook_(Clock::now() + kPause) {}

std::uint64_t FileWatch::Look() const {
  std::uint64_t sum = 0;
  std::error_code problem;
  for (const fs::path& place : places_) {
    if (fs::is_regular_file(place, problem)) sum += MarkOf(place);
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(place, problem)) {
      if (entry.is_regular_file(problem) && !IsLeftOut(entry.path())) sum += MarkOf(entry.path());
    }
  }
  return sum;
}

bool FileWatch::HasChanged() {
  if (Clock::now() < nextLook_) return false;
  nextLook_ = Clock::now() + kPause;
  const std::uint64_t before = std::exchange(last_, Look());
  if (last_ == known_ || last_ != before) return false;
  known_ = last_;
  return true;
}

}  // namespace qen::host
