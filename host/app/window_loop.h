// Runs the GUI from the window's input.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <vector>

#include "host/app/stage.h"
#include "host/script/script.h"

namespace qen::host {

// Until the window is closed, the GUI's "quit" is taken, or so many frames are over. What the game's script fails with
// is printed, and the game goes on. With `watched` places, the GUI is loaded anew when files there change.
void RunWindowLoop(Stage& stage, Script& game, std::optional<std::uint32_t> frames,
                   std::vector<std::filesystem::path> watched);

}  // namespace qen::host
