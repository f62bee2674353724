#include "base/clock.h"

#include <chrono>

namespace qen::base {

double RealClock::GetTime() {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

}  // namespace qen::base
