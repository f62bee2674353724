// How large words are in a scene.
#pragma once

namespace qen::formats {

inline constexpr float kUnitsAPixel = 0.14F;  // world units a font pixel

}  // namespace qen::formats
