// Where widgets are on screen.
#pragma once

#include <optional>

#include "base/backends/window_backend.h"
#include "engine/aabb.h"
#include "engine/camera.h"
#include "engine/gui_object.h"
#include "engine/matrix.h"
#include "engine/ray.h"
#include "engine/rect.h"

namespace qen::host {

// The box that a widget is pointed at by.
struct HitBox {
  AABB local;
  Matrix4x4 world;
};

// Nothing for a widget without one. A slide bar's is that of its bar.
std::optional<HitBox> FindHitBox(ICGUIObject& widget);

// The client pixel that shows the point of the box, given in parts of its half size from its centre; nothing when it is
// behind the eye.
std::optional<base::Point> Project(const HitBox& box, const Vec3& part, const Camera& camera, base::Point clientSize);

// The client pixel that shows the centre of the widget's box; nothing when the widget has no box or is behind the eye.
std::optional<base::Point> FindPlace(ICGUIObject& widget, const Camera& camera, base::Point clientSize);

// The smallest client rectangle around the widget's box; nothing when there is none or a part of it is behind the eye.
std::optional<Rect> FindRectangle(ICGUIObject& widget, const Camera& camera, base::Point clientSize);

// From the eye through a client pixel.
Ray RayThrough(base::Point client, const Camera& camera, base::Point clientSize);

bool Meets(const Ray& ray, const HitBox& box);

}  // namespace qen::host
