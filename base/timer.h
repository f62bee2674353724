// The timer service: the engine's clock, as modules see it.
#pragma once

#include "base/record.h"
#include "engine/timer.h"

namespace qen::base {

class TimerService final : public ITimer {
 public:
  explicit TimerService(ITimer& clock) : clock_(clock) {}

  double GetTime() override {
    Record("ITimer::GetTime");
    return clock_.GetTime();
  }

 private:
  ITimer& clock_;
};

}  // namespace qen::base
