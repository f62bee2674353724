// How pages are seen.
#pragma once

#include "engine/types.h"
#include "engine/vec.h"

namespace qen::formats {

inline constexpr Vec3 kEye{0.0F, 0.0F, -144.1F};  // looks at the origin

// The projection of pages without a camera of their own.
inline constexpr float kNearPlane = 1.0F;
inline constexpr float kFarPlane = 80000.0F;
inline constexpr float kFieldOfView = 0.7853982F;  // a quarter of pi, upright

inline constexpr StringView kCameraNode = u"Camera01";  // the node whose camera sets another projection

}  // namespace qen::formats
