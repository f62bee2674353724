// Definition files as the program itself looks at them.
#pragma once

#include <optional>
#include <vector>

#include "base/backends/file_backend.h"
#include "engine/types.h"
#include "formats/definition_words.h"

namespace qen::host {

// The tokens of a definition file, in their order. Nothing when it cannot be read.
std::optional<std::vector<String>> ReadTokens(base::IFileBackend& files, const String& file);

// A page file has a scene and widgets only when its first word is "name".
inline bool BeginsWithName(const std::vector<String>& tokens) {
  return !tokens.empty() && tokens.front() == formats::word::kName;
}
inline constexpr const char* kNoName = ": its first word is not \"name\"";  // behind the file, for people

}  // namespace qen::host
