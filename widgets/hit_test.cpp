#include "widgets/hit_test.h"

#include <algorithm>

#include "engine/mesh.h"
#include "engine/scene_node.h"

namespace qen {
namespace {

struct Interval {
  float near;
  float far;
};

Interval CutSlab(float low, float high, float origin, float direction) {
  if (direction >= 0.0F) return {(low - origin) / direction, (high - origin) / direction};
  return {(high - origin) / direction, (low - origin) / direction};
}

}  // namespace

LocalRay ToLocal(const Ray& ray, const TMNode& node) {
  const Vec3 origin = node.inverseTransform * ray.origin;
  return {origin, node.inverseTransform * (ray.origin + ray.direction) - origin};
}

bool HitsNode(const Ray& ray, const TMNode& node) {
  if (node.mesh == nullptr) return false;
  const LocalRay local = ToLocal(ray, node);
  float distance = 0.0F;
  return node.mesh->GetAABB().Intersect(local.origin, local.direction, distance);
}

SlabHit IntersectSlabs(const AABB& box, const LocalRay& ray) {
  const Vec3 low = box.getMin();
  const Vec3 high = box.getMax();
  Interval inside = CutSlab(low.x, high.x, ray.origin.x, ray.direction.x);
  for (const Interval& cut :
       {CutSlab(low.y, high.y, ray.origin.y, ray.direction.y), CutSlab(low.z, high.z, ray.origin.z, ray.direction.z)}) {
    if (cut.far < inside.near || cut.near > inside.far) return {};
    inside.near = std::max(inside.near, cut.near);
    inside.far = std::min(inside.far, cut.far);
  }
  return {true, std::min(inside.near, inside.far)};
}

}  // namespace qen
