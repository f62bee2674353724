#include "host/app/frame_times.h"

#include <algorithm>
#include <cstdio>
#include <numeric>
#include <span>
#include <utility>

#include "base/utf.h"

namespace qen::host {

void FrameTimes::EndFrame() { last_[count_++ % kFrames] = std::exchange(present_, {}); }

const String& FrameTimes::Line(std::uint32_t drawCalls) {
  const Clock::time_point now = Clock::now();
  if (now < lineEnds_ || count_ == 0) return line_;
  lineEnds_ = now + std::chrono::milliseconds(500);
  return line_ = MakeLine(drawCalls);
}

String FrameTimes::MakeLine(std::uint32_t drawCalls) const {
  const std::span<const Frame> frames(last_.data(), std::min(count_, kFrames));
  Frame mean{};
  double worst = 0.0;
  for (const Frame& frame : frames) {
    for (std::size_t i = 0; i < mean.size(); ++i) mean[i] += frame[i] / static_cast<double>(frames.size());
    worst = std::max(worst, std::accumulate(frame.begin(), frame.end(), 0.0));
  }
  std::array<char, 160> line{};
  std::snprintf(line.data(), line.size(),
                "%.1f ms a frame (at worst %.1f): update %.1f, draw %.1f, OpenGL %.1f, display %.1f; %u draw calls",
                std::accumulate(mean.begin(), mean.end(), 0.0), worst, mean[0], mean[1], mean[2], mean[3], drawCalls);
  return base::ToUtf16(line.data());
}

}  // namespace qen::host
