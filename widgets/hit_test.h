// The pick ray in the local space of a node.
#pragma once

#include "engine/ray.h"
#include "engine/vec.h"

namespace qen {

struct AABB;
struct TMNode;

struct LocalRay {
  Vec3 origin;
  Vec3 direction;  // not normalised
};

LocalRay ToLocal(const Ray& ray, const TMNode& node);

// True when the ray meets the box of the node's mesh. A node without a mesh is never met.
bool HitsNode(const Ray& ray, const TMNode& node);

// The line of the ray against the box's three pairs of planes, behind the origin as well as before it.
struct SlabHit {
  bool hit = false;
  float distance = 0.0F;  // of the entry, in multiples of the direction; may be negative
};

SlabHit IntersectSlabs(const AABB& box, const LocalRay& ray);

}  // namespace qen
