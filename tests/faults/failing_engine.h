// The sample on an engine one call of which fails.
#pragma once

#include <array>
#include <vector>

#include "tests/sample/sample_gui.h"

namespace qen::test {

// The calls of the module to the engine, and of the engine to its devices, pass through it. One at a time.
struct FailingEngine {
  // The call of that number fails, counted from 1 over all that can; 0: none. One that can fail in two ways is two.
  explicit FailingEngine(std::size_t struckCall);
  ~FailingEngine();
  FailingEngine(const FailingEngine&) = delete;
  FailingEngine& operator=(const FailingEngine&) = delete;

  bool Fails(const char* call) {
    calls.push_back(call);
    return calls.size() == struck;
  }

  [[nodiscard]] bool HasStruck() const { return struck > 0 && calls.size() >= struck; }

  // What was not given back: fonts, pictures, geometries, sounds, uses of materials.
  [[nodiscard]] std::array<std::size_t, 5> Kept() const;

  const std::size_t struck;
  std::vector<const char*> calls;  // that could fail, so far
  std::size_t usedMaterials = 0;
  bool managers = true;  // of fonts, materials and textures
  SampleGui sample;
};

}  // namespace qen::test
