// Small scenes and animations in a few lines, in glTF's space (x right, y up, z towards the viewer).
#pragma once

#include "base/backends/scene_backend.h"

namespace qen::base {

// These append a node and return its position. Add parents before their children, depth first.
QEN_API std::int32_t AddNode(SceneData& scene, StringView name, std::int32_t parent = -1, const Vec3& translation = {});
QEN_API std::int32_t AddBox(SceneData& scene, StringView name, std::int32_t parent, const Vec3& translation,
                            const Vec3& halfSize);
QEN_API std::int32_t AddCamera(SceneData& scene, StringView name, float angle, float nearPlane, float farPlane);

// Gives the mesh of the last node a picture of its own.
QEN_API void AddPicture(SceneData& scene);

// Moves a node in a straight line.
QEN_API AnimationData MoveNode(StringView node, const Vec3& from, const Vec3& to, float seconds);

}  // namespace qen::base
