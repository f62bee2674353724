// A plane: the points p with Dot(normal, p) + d == 0.
#pragma once

#include "engine/vec.h"

namespace qen {

struct Plane {
  Vec3 normal{0.0F, 0.0F, 1.0F};
  float d = 0.0F;

  // Signed distance in world units when the normal has length 1; positive on the normal's side.
  [[nodiscard]] float DistanceTo(const Vec3& p) const { return Dot(normal, p) + d; }
};

}  // namespace qen
