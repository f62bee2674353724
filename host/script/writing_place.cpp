#include "host/script/writing_place.h"

#include <algorithm>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "base/file_paths.h"
#include "base/utf.h"
#include "host/files/data_path.h"
#include "host/script/lua_values.h"
#include "host/script/script_state.h"
#include "host/script/script_world.h"

namespace qen::host {
namespace {

namespace fs = std::filesystem;

bool IsLink(const fs::path& file) {
  std::error_code problem;
  return fs::is_symlink(file, problem) ||
         (fs::is_regular_file(file, problem) && fs::hard_link_count(file, problem) > 1);
}

// Whether what is kept of a file before it is replaced goes behind a link.
bool KeepsBehindLink(const fs::path& file) {
  const fs::path folder = base::ResolvePath(base::ToUtf16((file.parent_path() / "bak").string()));
  if (IsLink(folder)) return true;
  std::error_code problem;
  return std::ranges::any_of(fs::directory_iterator(folder, problem),
                             [](const fs::directory_entry& kept) { return IsLink(kept.path()); });
}

class Place {
 public:
  // Throws std::runtime_error when the argument names no file in the folder of the data.
  Place(lua_State* state, int index, const char* function) {
    const std::string given = TextArgument(state, index);
    const String wide = base::ToUtf16(given);
    const std::optional<std::vector<String>> parts = SplitDataPath(wide);
    const auto refuse = [&](const char* why) {
      throw std::runtime_error(std::string(function) + " may not write " + given + ": " + why);
    };
    if (!parts || wide.find_first_of(u"/\\") == 0) refuse("it is not in the folder of the data");
    for (const String& part : *parts) name += (name.empty() ? u"" : u"/") + part;
    const GameData& data = ScriptState::Of(state).World().GetStage().Data();
    if (!data.isInFolder) refuse("the data is in an archive");
    file = base::ResolvePath(base::ToUtf16(data.folder.string() + '/') + name);
    fs::path above = file;
    for (std::size_t i = 0; i < parts->size(); ++i, above = above.parent_path()) {
      if (IsLink(above)) refuse("a link may lead out of the data");
    }
    if (KeepsBehindLink(file)) refuse("a link in bak may lead out of the data");
    std::error_code problem;
    if (fs::exists(file, problem) && !fs::is_regular_file(file, problem)) refuse("it is no ordinary file");
  }

  String name;
  fs::path file;
};

}  // namespace

fs::path WritablePicture(lua_State* state, int index, const char* function) {
  if (ScriptState::Of(state).IsTrusted()) return TextArgument(state, index);
  return Place(state, index, function).file;
}

String WritableDefinition(lua_State* state, int index, const char* function) {
  if (ScriptState::Of(state).IsTrusted()) return WideArgument(state, index);
  return Place(state, index, function).name;
}

void NeedTrust(lua_State* state, const char* function) {
  if (ScriptState::Of(state).IsTrusted()) return;
  throw std::runtime_error(std::string(function) + " is not for scripts of the data");
}

}  // namespace qen::host
