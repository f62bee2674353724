// Texts as the shaper takes them: whole characters.
#pragma once

#include <cstdint>
#include <vector>

#include "engine/types.h"

namespace qen::host {

struct Characters {
  std::vector<std::uint32_t> codes;
  std::vector<std::uint32_t> ofUnit;  // for each UTF-16 unit, the position of its character

  // Surrogates without a partner become U+FFFD; control characters and separators of lines, which have no picture,
  // become a blank of no width.
  void Read(StringView text);
};

// Belongs to the character before it: a combining mark or an invisible sign.
bool IsExtension(std::uint32_t code);

// Has no picture of its own; any face will do.
bool IsInvisible(std::uint32_t code);

}  // namespace qen::host
