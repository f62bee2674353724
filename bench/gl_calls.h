// Counts calls of OpenGL.
#pragma once

#include <cstdint>
#include <functional>

namespace qen::bench {

struct GlCalls {
  std::uint64_t all = 0;
  std::uint64_t draws = 0;
};

// The calls that the host's devices make in a frame that is not the first. Plays it several times.
GlCalls CountGlCalls(const std::function<void()>& frame);

}  // namespace qen::bench
