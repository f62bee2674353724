#include "host/app/frame_times.h"

#include <algorithm>
#include <cstdio>
#include <numeric>
#include <span>

#include "base/utf.h"

namespace qen::host {

String FrameTimes::NextFrame() {
  const Clock::time_point now = Clock::now();
  milliseconds_[count_++ % kFrames] = std::chrono::duration<double, std::milli>(now - last_).count();
  last_ = now;
  const std::span<const double> known(milliseconds_.data(), std::min(count_, kFrames));
  const double average = std::accumulate(known.begin(), known.end(), 0.0) / static_cast<double>(known.size());
  std::array<char, 80> line{};
  std::snprintf(line.data(), line.size(), "%.1f ms a frame, at worst %.1f ms", average, std::ranges::max(known));
  return base::ToUtf16(line.data());
}

}  // namespace qen::host
