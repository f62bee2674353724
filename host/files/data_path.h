// File names as definition files write them.
#pragma once

#include <optional>
#include <vector>

#include "engine/types.h"

namespace qen::host {

// The parts of a name relative to the root of the data. Slash and backslash both separate, empty parts and "." are
// skipped, ".." goes up, separators in front are the root. Nothing for a name that leaves the data (too many "..", a
// drive, another scheme) or names no file.
std::optional<std::vector<String>> SplitDataPath(StringView name);

}  // namespace qen::host
