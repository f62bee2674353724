// Which files a watch looks after.
#pragma once

#include <filesystem>
#include <functional>

namespace qen::host {

using EnterFolder = std::function<bool(const std::filesystem::path& folder)>;  // before its files; false: not these
using VisitFile = std::function<void(const std::filesystem::directory_entry& file)>;

// Goes through all files below the place, or to the place itself when it is a file. Leaves out backups and files that
// are being written, and passes over what cannot be read. Folders that are links are not entered.
void VisitFiles(const std::filesystem::path& place, const EnterFolder& enter, const VisitFile& visit);

bool HoldsBackups(const std::filesystem::path& folder);
bool IsBeingWritten(const std::filesystem::path& file);

}  // namespace qen::host
