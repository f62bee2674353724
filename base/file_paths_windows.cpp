#include <algorithm>

#include "base/file_paths.h"
#include "engine/platform.h"

namespace qen::base {

// The system finds names in any letter case by itself. It takes slashes too, but not in long names.
std::filesystem::path ResolvePath(StringView name) {
  String path(name);
  std::ranges::replace(path, u'/', u'\\');
  return platform::FileName(path.c_str());
}

}  // namespace qen::base
