// Poses of nodes and the animations that change them, in glTF's space.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "base/backends/scene_backend.h"
#include "engine/matrix.h"

namespace qen::base {

inline constexpr float kFramesPerSecond = 30.0F;  // of an animation's own time

// An animation with its nodes found.
struct Animation {
  struct Channel {
    std::uint32_t node = 0;
    Track<Vec3> translation;
    Track<Quaternion> rotation;
    Track<Vec3> scale;
  };

  std::vector<Channel> channels;
  float frames = 0.0F;
};

// Whether there are keys, in order, with a finite value for each. Tracks must be sound to be sampled.
bool IsSound(const Track<Vec3>& track);
bool IsSound(const Track<Quaternion>& track);

// The value at a time; before the first and after the last key it is that key's.
Vec3 Sample(const Track<Vec3>& track, float seconds);
Quaternion Sample(const Track<Quaternion>& track, float seconds);

// Puts the animated properties of the animated nodes into `poses`.
void ApplyAnimation(const Animation& animation, float frame, std::span<Pose> poses);

// Scale, then rotation, then translation, for row vectors.
QEN_API Matrix4x4 ToMatrix(const Pose& pose);

// A mesh's space of x right, y towards the viewer, z up, from glTF's.
inline Vec3 ToLocal(const Vec3& v) { return {v.x, v.z, v.y}; }

// From a node's local space to the world, given the node's global matrix in the scene file.
QEN_API Matrix4x4 ToWorld(const Matrix4x4& global);

}  // namespace qen::base
