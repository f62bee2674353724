// Runs the GUI from the window's input.
#pragma once

#include <cstdint>
#include <optional>

#include "host/app/stage.h"
#include "host/files/file_watch.h"
#include "host/script/script.h"

namespace qen::host {

// Until the window is closed, the GUI's "quit" is taken, or so many frames are over. What the game's script fails with
// is printed, and the game goes on. The GUI is loaded anew when the watch, which may be null, notices a change.
void RunWindowLoop(Stage& stage, Script& game, std::optional<std::uint32_t> frames, FileWatch* watch);

}  // namespace qen::host
