// The key codes that widgets understand; every other code is a character.
#pragma once

#include "engine/types.h"

namespace qen::key_code {

inline constexpr Char kBackspace = 8;
inline constexpr Char kEnter = 13;
inline constexpr Char kUp = 38;
inline constexpr Char kDown = 40;

}  // namespace qen::key_code
