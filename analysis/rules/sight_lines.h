// What the eye sees of a scene. It stands at one place on all pages, whatever their cameras.
#pragma once

#include "analysis/gui_model.h"

namespace qen::analysis {

// From the eye to a point of the world.
Vec3 RayTo(const Vec3& point);

// What a node's box takes of a screen one unit before the eye; all of it when it reaches behind the eye.
struct ScreenBox {
  float left = 0.0F, right = 0.0F, bottom = 0.0F, top = 0.0F;
  float nearest = 0.0F;  // how far before the eye it begins
};
ScreenBox ScreenBoxOf(const Node& node);

// Whether an opaque triangle of the mesh is met clearly before the ray's end. Each triangle that is looked at takes one
// off the `effort`; nothing is met when that is used up.
bool IsMetBefore(const Vec3& ray, const base::SceneData& scene, std::int32_t mesh, const Matrix4x4& world,
                 std::size_t& effort);

}  // namespace qen::analysis
