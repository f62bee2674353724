// The sample on an engine one call of which fails.
#pragma once

#include <string>

#include "tests/faults/failing_backends.h"
#include "tests/faults/failing_services.h"
#include "tests/sample/sample_gui.h"

namespace qen::test {

// Stands between the module and the engine, and between that and its backends. One at a time.
struct FailingEngine {
  explicit FailingEngine(std::size_t struckCall);
  ~FailingEngine();
  FailingEngine(const FailingEngine&) = delete;
  FailingEngine& operator=(const FailingEngine&) = delete;

  // What the module and the engine have not given back, in words; empty when all is well.
  [[nodiscard]] std::string Kept() const;

  FaultPlan plan;
  bool managers = true;  // those of fonts, materials and textures; null without
  failing::Files files{plan};
  failing::SceneFiles sceneFiles{plan};
  failing::Renderer renderer{plan};
  failing::Faces faces{plan};
  failing::Samples samples{plan};
  failing::Scenes scenes{plan};
  failing::Sounds sounds{plan};
  failing::Fonts fonts{plan};
  failing::Textures textures{plan};
  failing::Materials materials{plan};
  SampleGui sample;
};

}  // namespace qen::test
