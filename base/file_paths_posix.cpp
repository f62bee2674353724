#include <algorithm>
#include <system_error>

#include "base/file_paths.h"
#include "base/utf.h"
#include "engine/string_converter.h"

namespace qen::base {

namespace {

namespace fs = std::filesystem;

String Folded(const fs::path& part) { return ttolowercase(ToUtf16(part.string())); }

// `folder` / `part`, or what is there under that name in another letter case.
fs::path Find(const fs::path& folder, const fs::path& part) {
  std::error_code error;
  fs::path exact = folder / part;
  if (fs::exists(exact, error)) return exact;
  const String wanted = Folded(part);
  for (fs::directory_iterator entry(folder.empty() ? "." : folder, error), end; !error && entry != end;
       entry.increment(error)) {
    if (Folded(entry->path().filename()) == wanted) return folder / entry->path().filename();
  }
  return exact;
}

}  // namespace

fs::path ResolvePath(StringView name) {
  String slashed(name);
  std::ranges::replace(slashed, u'\\', u'/');
  fs::path resolved;
  for (const fs::path& part : fs::path(ToUtf8(slashed))) resolved = Find(resolved, part);
  return resolved;
}

}  // namespace qen::base
