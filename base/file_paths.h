// Paths of the file system from names that modules use.
#pragma once

#include <filesystem>

#include "engine/types.h"

namespace qen::base {

// Slash and backslash both separate folders; parts of the path that exist in another letter case only are those.
QEN_API std::filesystem::path ResolvePath(StringView name);

}  // namespace qen::base
