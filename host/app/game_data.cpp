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

String GameScriptName(const GameData& data) {
  return data.description.substr(0, data.description.find_last_of(u"/\\") + 1) + u"game.lua";
}

std::optional<FoundScript> FindGameScript(const GameData& data, PhysfsFiles& files) {
  const String name = GameScriptName(data);
  std::vector<std::uint8_t> bytes;
  if (data.description.empty() || !files.Read(name, bytes)) return std::nullopt;
  const fs::path file = data.folder / base::ToUtf8(name);
  std::error_code problem;
  const bool isInFolder = data.isInFolder && fs::exists(file, problem);
  return FoundScript{isInFolder ? file.string() : base::ToUtf8(name), {bytes.begin(), bytes.end()}};
}

GameData MountGameData(const std::string& description, const std::vector<std::string>& places, PhysfsFiles& files) {
  std::error_code problem;
  const fs::path path(description);
  const bool isFile = fs::exists(path, problem) && !fs::is_directory(path, problem);
  GameData data{base::ToUtf16(description), "."};
  if (description.empty() && places.empty()) files.Mount(".");
  if (isFile) {
    data = {base::ToUtf16(path.filename().string()), FolderOf(path), true};
    files.Mount(data.folder);
  } else if (fs::is_directory(path, problem)) {
    Fail(description, "it is a folder");
  }
  for (const std::string& place : places) {
    if (!fs::exists(place, problem)) Fail(place, "no such file or folder");
    files.Mount(place);
    if (isFile || !fs::is_directory(place, problem)) continue;
    data.folder = place;
    data.isInFolder = true;
  }
  if (description.empty()) return data;
  std::vector<std::uint8_t> bytes;
  if (!files.Read(data.description, bytes)) Fail(description, isFile ? "it cannot be opened" : "no such file");
  return data;
}

}  // namespace qen::host
