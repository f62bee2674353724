#include "host/app/game_data.h"

#include <cstdint>
#include <stdexcept>

#include "base/utf.h"

namespace qen::host {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void Fail(const std::string& file, const char* reason) {
  throw std::runtime_error("cannot read " + file + ": " + reason);
}

fs::path FolderOf(const fs::path& file) { return file.has_parent_path() ? file.parent_path() : fs::path("."); }

}  // namespace

fs::path GameData::GameScript() const {
  std::error_code problem;
  const fs::path script = folder / "game.lua";
  return fs::is_regular_file(script, problem) ? script : fs::path();
}

GameData MountGameData(const std::string& description, const std::vector<std::string>& places, PhysfsFiles& files) {
  std::error_code problem;
  const fs::path path(description);
  const bool isFile = fs::exists(path, problem) && !fs::is_directory(path, problem);
  if (description.empty() && places.empty()) files.Mount(".");
  GameData data{base::ToUtf16(description), "."};
  if (isFile) {
    data = {base::ToUtf16(path.filename().string()), FolderOf(path)};
    files.Mount(data.folder);
  } else if (fs::is_directory(path, problem)) {
    Fail(description, "it is a folder");
  }
  for (const std::string& place : places) {
    if (!fs::exists(place, problem)) Fail(place, "no such file or folder");
    files.Mount(place);
    if (!isFile && fs::is_directory(place, problem)) data.folder = place;
  }
  if (description.empty()) return data;
  std::vector<std::uint8_t> bytes;
  if (!files.Read(data.description, bytes)) Fail(description, isFile ? "it cannot be opened" : "no such file");
  return data;
}

}  // namespace qen::host
