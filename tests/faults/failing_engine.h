// The sample on an engine one call of which fails.
#pragma once

#include <memory>
#include <string>

#include "tests/faults/fault_plan.h"
#include "tests/sample/sample_gui.h"

namespace qen::test {

// Stands between the module and the engine, and between that and its backends. One at a time.
class FailingEngine {
 public:
  explicit FailingEngine(std::size_t struckCall);
  ~FailingEngine();
  FailingEngine(const FailingEngine&) = delete;
  FailingEngine& operator=(const FailingEngine&) = delete;

  [[nodiscard]] const FaultPlan& Plan() const;
  [[nodiscard]] SampleGui& Sample() const;

  // The fonts', materials' and textures' managers are null from now on.
  void TakeManagersAway();

  // What the module and the engine have not given back, in words; empty when all is well.
  [[nodiscard]] std::string Kept() const;

  struct Parts;

 private:
  std::unique_ptr<Parts> parts_;
};

}  // namespace qen::test
