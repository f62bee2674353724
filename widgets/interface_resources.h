// Under which names the interface's material and textures are asked of the engine.
#pragma once

#include <cstdint>

#include "engine/types.h"

namespace qen::interface_resources {

inline constexpr const Char* kMaterial = u"gui";
inline constexpr std::uint32_t kTextureFlags = 129;

}  // namespace qen::interface_resources
