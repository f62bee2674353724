// A node of a loaded scene.
#pragma once

#include <cstdint>

#include "engine/matrix.h"
#include "engine/shared.h"
#include "engine/types.h"

namespace qen {

class Mesh;

// A line of the processor's cache.
struct alignas(64) TMNode {
  static constexpr std::uint32_t kNoParent = 0xFFFFFFFF;

  Mesh* mesh = nullptr;      // owned by the scene; null when the node has none
  void* userData = nullptr;  // whoever sets it owns what it points to; the GUI hangs NodeDrawInfo here

  // Whoever assigns to them moves this node alone, be they common to several before.
  Shared<Matrix4x4> inverseTransform{Matrix4x4::Identity};  // the Inverse() of the next
  Shared<Matrix4x4> transform{Matrix4x4::Identity};         // to world space; follows animations

  std::uint32_t position = 0;        // its own in SimpleScene::GetNodes
  std::uint32_t parent = kNoParent;  // position in SimpleScene::GetNodes, before the node's own
  StringView name;  // exactly as in the scene file, with a zero behind it; its characters are the scene's
  const float* cameraParameters = nullptr;  // 4 values, owned by the scene: 1 is 1.3 x vertical angle in radians, 2 the
                                            // near and 3 the far plane; null when the node is no camera
};

static_assert(sizeof(void*) != 8 || sizeof(TMNode) == 64);

}  // namespace qen
