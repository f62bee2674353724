// What a fuzz program does with one input.
#pragma once

#include <cstdint>
#include <span>

namespace qen::fuzz {

using Input = std::span<const std::uint8_t>;

// Each program has its own. Whatever the input, it comes back, and leaves nothing behind for the next one.
void Try(Input input);

}  // namespace qen::fuzz
