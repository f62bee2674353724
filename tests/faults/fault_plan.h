// Which call of the engine fails.
#pragma once

#include <string>
#include <vector>

namespace qen::test {

// Numbers the calls that can fail, from 1, in the order in which they are made. A call that can fail in two ways is
// two. Each asks once for each way.
class FaultPlan {
 public:
  explicit FaultPlan(std::size_t struck) : struck_(struck) {}  // 0: none fails

  bool Fails(const char* call) {
    calls_.push_back(call);
    return calls_.size() == struck_;
  }

  [[nodiscard]] const std::vector<const char*>& Calls() const { return calls_; }
  [[nodiscard]] bool HasStruck() const { return struck_ > 0 && calls_.size() >= struck_; }

 private:
  std::vector<const char*> calls_;
  std::size_t struck_;
};

// What passes calls on to `real`, but for those that are to fail.
template <class Interface>
struct Faulty : Interface {
  explicit Faulty(FaultPlan& faults) : plan(faults) {}

  FaultPlan& plan;
  Interface* real = nullptr;
};

}  // namespace qen::test
