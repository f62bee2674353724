// Where the program's data comes from.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "engine/types.h"
#include "host/files/physfs_files.h"

namespace qen::host {

struct GameData {
  String description;            // the name of the GUI description in the data
  std::filesystem::path folder;  // where the GUI writes its files
  bool isInFolder = false;       // that folder is one of the data, which may be archives alone
};

// A script that came with the data.
struct FoundScript {
  std::string name;  // for people
  std::string text;
};

// The file of the data that plays the game's part, "game.lua" beside the description.
String GameScriptName(const GameData& data);

// That script; nothing when there is none.
std::optional<FoundScript> FindGameScript(const GameData& data, PhysfsFiles& files);

// Mounts the folder of a description that is a file, then each of `places` over it. Otherwise the description is a name
// in `places`, and the last of them that is a folder is written to. An empty description is none; the data is then in
// `places`, or in the current folder without any. Throws std::runtime_error, naming what cannot be
// read.
GameData MountGameData(const std::string& description, const std::vector<std::string>& places, PhysfsFiles& files);

}  // namespace qen::host
