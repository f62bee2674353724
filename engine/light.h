// Lights of a scene.
#pragma once

#include <cstdint>

#include "engine/vec.h"

namespace qen {

// The first directional light of a list is the key light of the studio that scenes stand in; its color of white lights
// a surface up to the surface's own colour. An ambient light takes the place of that studio, key light included. All
// others add to what there is.
struct alignas(16) Light {
  static constexpr std::uint32_t kPoint = 1;
  static constexpr std::uint32_t kSpot = 2;
  static constexpr std::uint32_t kDirectional = 3;
  static constexpr std::uint32_t kAmbient = 4;

  std::uint32_t type = 0;            // another one gives no light
  Vec3 position;                     // of points and spots
  Vec3 direction{0.0F, 0.0F, 1.0F};  // length 1, the way the light travels
  Vec3 color{1.0F, 1.0F, 1.0F};      // linear: W/m2, of points and spots W/sr; of ambient light what white shows
  bool changed = false;
  float range = 0.0F;               // beyond it a point or spot gives no light; 0: it has no end
  float innerAngle = 0.0F;          // radians from a spot's direction, up to which it is fully bright
  float outerAngle = 0.785398163F;  // and from which it is dark
};

}  // namespace qen
