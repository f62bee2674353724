#include "host/files/watched_files.h"

#include <string>
#include <system_error>

namespace qen::host {
namespace {

namespace fs = std::filesystem;

// Each folder is listed by itself, so that one that goes away meanwhile spoils no other.
void VisitFolder(const fs::path& folder, const EnterFolder& enter, const VisitFile& visit) {
  if (!enter(folder)) return;
  std::error_code problem;
  for (fs::directory_iterator entry(folder, problem), end; !problem && entry != end; entry.increment(problem)) {
    std::error_code gone;
    const fs::path& path = entry->path();
    if (entry->is_directory(gone)) {
      if (!entry->is_symlink(gone) && !HoldsBackups(path)) VisitFolder(path, enter, visit);
    } else if (entry->is_regular_file(gone) && !IsBeingWritten(path)) {
      visit(*entry);
    }
  }
}

}  // namespace

void VisitFiles(const fs::path& place, const EnterFolder& enter, const VisitFile& visit) {
  std::error_code gone;
  if (fs::is_directory(place, gone)) return VisitFolder(place, enter, visit);
  const fs::directory_entry entry(place, gone);
  if (entry.is_regular_file(gone)) visit(entry);
}

bool HoldsBackups(const fs::path& folder) { return folder.filename() == "bak"; }

bool IsBeingWritten(const fs::path& file) { return file.filename().string().find(".part") != std::string::npos; }

}  // namespace qen::host
