#include "host/script/time_limit.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <stdexcept>

namespace qen::host {

TimeLimit::Scope::Scope(TimeLimit& limit, double seconds) : limit_(limit), before_(limit.end_) {
  using Clock = std::chrono::steady_clock;
  constexpr double kLongest = 1e9;  // more than the clock can tell from never
  const std::chrono::duration<double> given(std::min(seconds, kLongest));
  const Clock::time_point time = Clock::now() + std::chrono::duration_cast<Clock::duration>(given);
  if (!before_ || time < before_->time) limit.end_ = End{time, seconds};
}

std::string TimeLimit::Complaint() const {
  std::array<char, 32> seconds{};
  std::snprintf(seconds.data(), seconds.size(), "%g", end_ ? end_->seconds : 0.0);
  return "still running after " + std::string(seconds.data()) + " seconds";
}

void TimeLimit::Check() const {
  if (IsOver()) throw std::runtime_error(Complaint());
}

}  // namespace qen::host
