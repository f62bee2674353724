// Definition files as the program itself looks at them.
#pragma once

#include <optional>
#include <vector>

#include "base/backends/file_backend.h"
#include "engine/types.h"

namespace qen::host {

// The tokens of a definition file, in their order. Nothing when it cannot be read.
std::optional<std::vector<String>> ReadTokens(base::IFileBackend& files, const String& file);

}  // namespace qen::host
