// The clock that everything moves by.
#pragma once

namespace qen {

class ITimer {
 public:
  virtual ~ITimer() = default;
  virtual double GetTime() = 0;  // seconds since some fixed moment; never runs backwards
};

}  // namespace qen
