// Runs the GUI from the window's input.
#pragma once

#include <cstdint>
#include <optional>

#include "host/app/stage.h"

namespace qen::host {

// Until the window is closed, the GUI's "quit" is taken, or so many frames are over.
void RunWindowLoop(Stage& stage, std::optional<std::uint32_t> frames);

}  // namespace qen::host
