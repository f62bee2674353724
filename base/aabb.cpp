#include "engine/aabb.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>

namespace qen {
namespace {

struct Slab {
  float origin, direction, center, halfSize;
};

bool IsFinite(const Slab& s) {
  return std::isfinite(s.origin) && std::isfinite(s.direction) && std::isfinite(s.center) && std::isfinite(s.halfSize);
}

// Cuts the part of the ray outside the slab off [enter, leave]. False when nothing is left.
bool Clip(const Slab& s, double& enter, double& leave) {
  const double toCenter = static_cast<double>(s.center) - static_cast<double>(s.origin);
  const double half = static_cast<double>(s.halfSize);
  if (s.direction == 0.0F) return std::abs(toCenter) <= half;
  const double direction = static_cast<double>(s.direction);
  double near = (toCenter - half) / direction;
  double far = (toCenter + half) / direction;
  if (near > far) std::swap(near, far);
  enter = std::max(enter, near);
  leave = std::min(leave, far);
  return enter <= leave;
}

}  // namespace

bool AABB::Intersect(const Vec3& origin, const Vec3& direction, float& distance) const {
  if (IsEmpty()) return false;
  const std::array slabs{Slab{origin.x, direction.x, center.x, halfSize.x},
                         Slab{origin.y, direction.y, center.y, halfSize.y},
                         Slab{origin.z, direction.z, center.z, halfSize.z}};
  double enter = 0.0;
  double leave = std::numeric_limits<double>::infinity();
  for (const Slab& slab : slabs) {
    if (!IsFinite(slab) || !Clip(slab, enter, leave)) return false;
  }
  distance = static_cast<float>(std::min(enter, static_cast<double>(std::numeric_limits<float>::max())));
  return true;
}

}  // namespace qen
