#include "base/scene_boxes.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "base/pose.h"

namespace qen::base {
namespace {

bool IsFinite(const Vec3& v) { return std::isfinite(v.x) && std::isfinite(v.y) && std::isfinite(v.z); }

}  // namespace

AABB BoxOf(const std::vector<SubMeshData>& subMeshes) {
  constexpr float kInfinity = std::numeric_limits<float>::infinity();
  Vec3 low{kInfinity, kInfinity, kInfinity};
  Vec3 high = -low;
  for (const SubMeshData& subMesh : subMeshes) {
    for (const Vertex& vertex : subMesh.vertices) {
      const Vec3 p = ToLocal(vertex.position);
      if (!IsFinite(p)) continue;
      low = {std::min(low.x, p.x), std::min(low.y, p.y), std::min(low.z, p.z)};
      high = {std::max(high.x, p.x), std::max(high.y, p.y), std::max(high.z, p.z)};
    }
  }
  if (low.x > high.x) return {};
  return {low * 0.5F + high * 0.5F, high * 0.5F - low * 0.5F};
}

}  // namespace qen::base
