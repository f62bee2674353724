// Scripts that drive the GUI, in Lua.
#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "host/app/stage.h"

namespace qen::host {

class ScriptState;
class ScriptWorld;

struct ScriptOptions {
  bool realtime = false;       // frames take as long as they last; otherwise they follow each other at once
  bool renewPictures = false;  // golden pictures are replaced instead of compared with
  std::string game = {};       // the game's script, which may do what Lua can; empty: that of the data, in its bounds
  double timeout = 60.0;       // seconds that a script may run, and each of its handlers
  bool listens = true;         // sounds and tooltips are kept for the script, which costs some time each frame
};

class Script {
 public:
  // Runs the game's script and delivers what waits, so that the first page is there. Throws as Run does.
  Script(Stage& stage, const ScriptOptions& options);

  void RunGame();  // the game's script once more, after the GUI was loaded anew
  ~Script();
  Script(const Script&) = delete;
  Script& operator=(const Script&) = delete;

  // Throws std::runtime_error, with one line that names the file and the script's line, when the file cannot be read,
  // is no Lua, or fails.
  void Run(const std::filesystem::path& file);

  // What a handler of the scripts failed with since the last call; nothing when none did.
  std::optional<std::string> TakeFailure();

 private:
  std::filesystem::path namedGame_;  // empty for none
  std::unique_ptr<ScriptWorld> world_;
  std::unique_ptr<ScriptState> game_;  // apart from the other scripts
  std::unique_ptr<ScriptState> own_;
};

}  // namespace qen::host
