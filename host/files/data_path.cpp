#include "host/files/data_path.h"

#include <algorithm>

namespace qen::host {
namespace {

constexpr StringView kSeparators = u"/\\";
constexpr StringView kForbidden(u":\0", 2);  // drives and schemes; the end of a name in the system's calls

}  // namespace

std::optional<std::vector<String>> SplitDataPath(StringView name) {
  if (name.find_first_of(kForbidden) != StringView::npos) return std::nullopt;
  std::vector<String> parts;
  while (!name.empty()) {
    const StringView part = name.substr(0, name.find_first_of(kSeparators));
    name.remove_prefix(std::min(part.size() + 1, name.size()));
    if (part.empty() || part == u".") continue;
    if (part != u"..") {
      parts.emplace_back(part);
    } else if (parts.empty()) {
      return std::nullopt;
    } else {
      parts.pop_back();
    }
  }
  if (parts.empty()) return std::nullopt;
  return parts;
}

}  // namespace qen::host
