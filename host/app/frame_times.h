// What the frames of the last second cost.
#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>

#include "engine/types.h"

namespace qen::host {

enum class FramePart : std::uint8_t {
  Update,   // input, animations, commands
  Draw,     // what the pages hand over
  OpenGl,   // the renderer
  Display,  // until the window shows it
};

class FrameTimes {
 public:
  using Clock = std::chrono::steady_clock;

  // Adds its own life to a part of the present frame.
  class Timer {
   public:
    explicit Timer(double& milliseconds) : milliseconds_(milliseconds) {}
    ~Timer() { milliseconds_ += std::chrono::duration<double, std::milli>(Clock::now() - start_).count(); }
    Timer(const Timer&) = delete;
    Timer& operator=(const Timer&) = delete;

   private:
    double& milliseconds_;
    Clock::time_point start_ = Clock::now();
  };

  [[nodiscard]] Timer Measure(FramePart part) { return Timer(present_[static_cast<std::size_t>(part)]); }

  void EndFrame();

  // The means of the last frames, and the draw calls of a frame. A new one comes twice a second, so that it can be
  // read, and a picture that stays can stay.
  const String& Line(std::uint32_t drawCalls);

 private:
  static constexpr std::size_t kFrames = 60;
  using Frame = std::array<double, 4>;  // milliseconds by part

  [[nodiscard]] String MakeLine(std::uint32_t drawCalls) const;

  Frame present_{};
  std::array<Frame, kFrames> last_{};  // in turn
  std::size_t count_ = 0;
  String line_;
  Clock::time_point lineEnds_;
};

}  // namespace qen::host
