// Scripts that drive the GUI, in Lua.
#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "host/app/stage.h"

struct lua_State;

namespace qen::host {

class ScriptWorld;

struct ScriptOptions {
  bool realtime = false;       // frames take as long as they last; otherwise they follow each other at once
  bool renewPictures = false;  // golden pictures are replaced instead of compared with
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
  struct Close {
    void operator()(lua_State* state) const;
  };

  std::unique_ptr<lua_State, Close> state_;
  std::unique_ptr<ScriptWorld> world_;
};

}  // namespace qen::host
