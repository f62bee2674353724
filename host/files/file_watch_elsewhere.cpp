// Where the system is not known to tell of changes in a way used here.
#include <utility>

#include "host/files/file_watch_polling.h"

namespace qen::host {

std::unique_ptr<FileWatch> WatchFiles(std::vector<std::filesystem::path> places, std::chrono::milliseconds quietTime) {
  return std::make_unique<PollingWatch>(std::move(places), quietTime);
}

}  // namespace qen::host
