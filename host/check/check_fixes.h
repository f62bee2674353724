// Carries out fixes on the disk.
#pragma once

#include "analysis/check.h"
#include "host/files/physfs_files.h"

namespace qen::host {

// Makes the fixes of the findings, keeps what was there as a numbered backup, and tells of each file on standard error.
// False when there is nothing to fix. Throws std::runtime_error, naming the file, when one cannot be written.
bool FixFiles(const analysis::Report& report, PhysfsFiles& files);

}  // namespace qen::host
