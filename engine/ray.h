// A pick ray in world space.
#pragma once

#include "engine/vec.h"

namespace qen {

struct Ray {
  Vec3 origin;
  Vec3 direction;  // not normalised
  float length = 0.0F;
};

}  // namespace qen
