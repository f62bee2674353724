// The lights of a mesh as the shader takes them.
#pragma once

#include <array>
#include <cstddef>

#include "engine/light.h"
#include "engine/scene_instance.h"

namespace qen::host {

struct MeshLights {
  static constexpr std::size_t kMostLamps = 8;

  // The rows are those of the shader's lamps.
  struct Lamp {
    std::array<float, 4> place, color, axis, cone;
  };

  bool lit = false;               // there is any light
  Vec3 toKey{0.0F, 0.0F, -1.0F};  // length 1
  Vec3 keyColor;
  const Light* ambient = nullptr;  // takes the place of the studio
  std::size_t lampCount = 0;
  std::array<Lamp, kMostLamps> lamps{};  // the first `lampCount`
};

// The first lamps count where there are more than the shader takes. `lights` may be null, and have null in it.
MeshLights GatherLights(const LightList* lights);

}  // namespace qen::host
