// Frame times on screen.
#pragma once

#include <array>
#include <chrono>
#include <cstddef>

namespace qen {
class Font;
}

namespace qen::host {

// Needs the engine before and after.
class FrameTimes {
 public:
  FrameTimes();
  ~FrameTimes();
  FrameTimes(const FrameTimes&) = delete;
  FrameTimes& operator=(const FrameTimes&) = delete;

  // Draws how long the last second's worth of frames took: on average and at worst. Once a frame, where it is drawn.
  void Draw();

 private:
  using Clock = std::chrono::steady_clock;
  static constexpr std::size_t kFrames = 60;

  Font* font_;  // null when there is none: nothing is drawn
  Clock::time_point last_ = Clock::now();
  std::array<double, kFrames> milliseconds_{};
  std::size_t count_ = 0;  // frames seen
};

}  // namespace qen::host
