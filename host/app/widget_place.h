// Where widgets are on screen.
#pragma once

#include <optional>

#include "base/backends/window_backend.h"
#include "engine/camera.h"
#include "engine/gui_object.h"
#include "engine/rect.h"

namespace qen::host {

// The client pixel that shows the centre of the widget's box; nothing when the widget has no box or is behind the eye.
std::optional<base::Point> FindPlace(ICGUIObject& widget, const Camera& camera, base::Point clientSize);

// The smallest client rectangle around the widget's box; nothing when there is none or a part of it is behind the eye.
std::optional<Rect> FindRectangle(ICGUIObject& widget, const Camera& camera, base::Point clientSize);

}  // namespace qen::host
