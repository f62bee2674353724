// Lights of a scene.
#pragma once

#include <cstdint>

#include "engine/vec.h"

namespace qen {

struct alignas(16) Light {
  static constexpr std::uint32_t kDirectional = 3;

  std::uint32_t type = 0;
  Vec3 position;
  Vec3 direction{0.0F, 0.0F, 1.0F};  // length 1, the way the light travels
  Vec3 color{1.0F, 1.0F, 1.0F};      // linear
  bool changed = false;
};

}  // namespace qen
