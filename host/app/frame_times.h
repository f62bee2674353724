// Frame times.
#pragma once

#include <array>
#include <chrono>
#include <cstddef>

#include "engine/types.h"

namespace qen::host {

class FrameTimes {
 public:
  String NextFrame();  // called once a frame; a line about the last ones

 private:
  using Clock = std::chrono::steady_clock;
  static constexpr std::size_t kFrames = 60;

  std::array<double, kFrames> milliseconds_{};  // of the last frames, in turn
  std::size_t count_ = 0;
  Clock::time_point last_ = Clock::now();
};

}  // namespace qen::host
