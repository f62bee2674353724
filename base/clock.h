// The engine's clock: the system's, or one that is moved by hand.
#pragma once

#include "engine/timer.h"
#include "engine/types.h"

namespace qen::base {

class QEN_API RealClock final : public ITimer {
 public:
  double GetTime() override;
};

class QEN_API ManualClock final : public ITimer {
 public:
  double GetTime() override { return time_; }
  void Advance(double seconds) { time_ += seconds; }

 private:
  double time_ = 0.0;
};

}  // namespace qen::base
