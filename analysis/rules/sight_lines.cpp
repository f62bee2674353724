#include "analysis/rules/sight_lines.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "base/pose.h"
#include "formats/page_view.h"

namespace qen::analysis {
namespace {

constexpr float kNearest = formats::kNearPlane;
constexpr float kInfinity = std::numeric_limits<float>::infinity();

// Which sides of a triangle are drawn: those that it shows counter-clockwise, clockwise in a mirrored node.
struct Facing {
  bool isMirrored = false;
  bool isDoubleSided = false;

  [[nodiscard]] bool IsSeen(float volume) const { return isDoubleSided || (volume > 0.0F) != isMirrored; }
};

bool IsMirroring(const Matrix4x4& m) {
  const Vec3 x{m.m[0][0], m.m[0][1], m.m[0][2]};
  const Vec3 y{m.m[1][0], m.m[1][1], m.m[1][2]};
  const Vec3 z{m.m[2][0], m.m[2][1], m.m[2][2]};
  return Dot(x, Cross(y, z)) < 0.0F;
}

// The corners are given from the eye. The ray goes through the triangle where it is on the same side of the three
// planes that the eye makes with its edges.
bool IsTriangleMet(const Vec3& ray, const std::array<Vec3, 3>& corners, const Facing& facing) {
  constexpr float kClear = 0.01F;  // units
  const auto& [a, b, c] = corners;
  const float volume = Dot(a, Cross(b, c));
  if (volume == 0.0F || !facing.IsSeen(volume)) return false;
  const std::array<float, 3> parts{Dot(ray, Cross(b, c)), Dot(ray, Cross(c, a)), Dot(ray, Cross(a, b))};
  if (!std::ranges::all_of(parts, [volume](float part) { return part * volume >= 0.0F; })) return false;
  const float share = volume / (parts[0] + parts[1] + parts[2]);  // of the ray, where they meet
  return share * ray.z >= kNearest && (1.0F - share) * ray.Length() > kClear;
}

const base::MaterialData* MaterialOf(const base::SceneData& scene, std::int32_t position) {
  const bool inside = position >= 0 && static_cast<std::size_t>(position) < scene.materials.size();
  return inside ? &scene.materials[static_cast<std::size_t>(position)] : nullptr;
}

bool IsPartMet(const Vec3& ray, const base::SubMeshData& part, const Matrix4x4& world, const Facing& facing,
               std::size_t& effort) {
  for (std::size_t i = 0; i + 2 < part.indices.size(); i += 3) {
    if (effort == 0) return false;
    --effort;
    std::array<Vec3, 3> corners;
    for (std::size_t corner = 0; corner < corners.size(); ++corner) {
      const std::uint32_t index = part.indices[i + corner];
      if (index >= part.vertices.size()) return false;  // such a mesh is not drawn
      corners[corner] = RayTo(world * base::ToLocal(part.vertices[index].position));
    }
    if (IsTriangleMet(ray, corners, facing)) return true;
  }
  return false;
}

}  // namespace

Vec3 RayTo(const Vec3& point) { return point - formats::kEye; }

ScreenBox ScreenBoxOf(const Node& node) {
  ScreenBox box{kInfinity, -kInfinity, kInfinity, -kInfinity, kInfinity};
  const Vec3 low = node.box->getMin();
  const Vec3 high = node.box->getMax();
  for (unsigned corner = 0; corner < 8; ++corner) {
    const Vec3 seen = RayTo(node.world * Vec3{(corner & 1U) != 0 ? high.x : low.x, (corner & 2U) != 0 ? high.y : low.y,
                                              (corner & 4U) != 0 ? high.z : low.z});
    box.nearest = std::min(box.nearest, seen.z);
    box.left = std::min(box.left, seen.x / seen.z);
    box.right = std::max(box.right, seen.x / seen.z);
    box.bottom = std::min(box.bottom, seen.y / seen.z);
    box.top = std::max(box.top, seen.y / seen.z);
  }
  if (box.nearest >= kNearest) return box;
  return {-kInfinity, kInfinity, -kInfinity, kInfinity, box.nearest};
}

bool IsMetBefore(const Vec3& ray, const base::SceneData& scene, std::int32_t mesh, const Matrix4x4& world,
                 std::size_t& effort) {
  if (mesh < 0 || static_cast<std::size_t>(mesh) >= scene.meshes.size()) return false;
  const bool isMirrored = IsMirroring(world);
  return std::ranges::any_of(scene.meshes[static_cast<std::size_t>(mesh)], [&](const base::SubMeshData& part) {
    const base::MaterialData* material = MaterialOf(scene, part.material);
    const bool isOpaque = material == nullptr || material->params.alphaMode == AlphaMode::Opaque;
    const Facing facing{isMirrored, material != nullptr && material->params.doubleSided};
    return isOpaque && IsPartMet(ray, part, world, facing, effort);
  });
}

}  // namespace qen::analysis
