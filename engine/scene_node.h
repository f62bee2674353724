// A node of a loaded scene.
#pragma once

#include <cstdint>

#include "engine/matrix.h"
#include "engine/types.h"

namespace qen {

class Mesh;

struct alignas(16) TMNode {
  static constexpr std::uint32_t kNoParent = 0xFFFFFFFF;

  String name;                              // exactly as in the scene file
  std::uint32_t position = 0;               // its own in SimpleScene::GetNodes
  std::uint32_t parent = kNoParent;         // position in SimpleScene::GetNodes, before the node's own
  Mesh* mesh = nullptr;                     // owned by the scene; null when the node has none
  const float* cameraParameters = nullptr;  // 4 values, owned by the scene: 1 is 1.3 x vertical angle in radians, 2 the
                                            // near and 3 the far plane; null when the node is no camera
  void* userData = nullptr;                 // whoever sets it owns what it points to; the GUI hangs NodeDrawInfo here
  Matrix4x4 transform = Matrix4x4::Identity;         // to world space; follows animations
  Matrix4x4 inverseTransform = Matrix4x4::Identity;  // its Inverse()
};

}  // namespace qen
