// Times a step of loading for the log.
#pragma once

#include <cstdint>

#include "engine/platform.h"

namespace qen {

class Stopwatch {
 public:
  // Right also when the millisecond counter wraps.
  [[nodiscard]] double Seconds() const { return (platform::timeGetTime() - start_) / 1000.0; }

 private:
  std::uint32_t start_ = platform::timeGetTime();
};

}  // namespace qen
