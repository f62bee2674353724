// Runs a folder of scripts as tests.
#pragma once

#include "host/app/options.h"

namespace qen::host {

// Runs every script of the folder, in the order of their names, each with a GUI of its own, and prints a line for each
// and one with the numbers of passed and failed. True when none failed. Throws std::runtime_error when the folder
// cannot be read or has no scripts.
bool RunScriptTests(const Options& options);

}  // namespace qen::host
