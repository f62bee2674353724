// Commands from outside the GUI.
#pragma once

#include "engine/gui.h"
#include "engine/types.h"

namespace qen::host {

// Posts a command text as if a button of an active page (or else of any page) carried it and was clicked; the button is
// its source. Throws std::runtime_error when no page has a button that could.
void PostCommand(IGui& gui, const String& text);

}  // namespace qen::host
