// Axis-aligned box, kept as its centre and its half size.
#pragma once

#include "engine/types.h"
#include "engine/vec.h"

namespace qen {

struct AABB {
  Vec3 center;    // the box's reference point
  Vec3 halfSize;  // never negative; all zero is the empty box

  [[nodiscard]] Vec3 getMin() const { return center - halfSize; }
  [[nodiscard]] Vec3 getMax() const { return center + halfSize; }
  [[nodiscard]] bool IsEmpty() const { return halfSize == Vec3{}; }

  // True when the half line from `origin` along `direction` (any length) meets the box; `distance` then receives the
  // entry point in multiples of `direction`, 0 when the origin is inside. An empty box is never met; a flat one is.
  // Slab method: Kay and Kajiya, "Ray Tracing Complex Scenes", 1986.
  QEN_API bool Intersect(const Vec3& origin, const Vec3& direction, float& distance) const;
};

}  // namespace qen
