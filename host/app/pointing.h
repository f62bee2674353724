// Points at widgets as a person does.
#pragma once

#include "base/backends/window_backend.h"
#include "engine/camera.h"
#include "engine/gui.h"

namespace qen::host {

// A client pixel at which the cursor is on the widget and on no other that comes before it. Throws std::runtime_error,
// saying why, when there is none: the widget is hidden, disabled, on a page that is not active, out of sight, or behind
// another widget.
base::Point FindPointOn(IGui& gui, ICGUIObject& widget, const Camera& camera, base::Point clientSize);

}  // namespace qen::host
