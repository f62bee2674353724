// What every benchmark of the module needs.
#pragma once

#include <benchmark/benchmark.h>

#include "engine/camera.h"
#include "engine/system.h"
#include "tests/module/gui_fixture.h"

namespace qen::test {

// A loaded module without the frame of a test.
struct Host {
  explicit Host(const std::function<void(base::Backends&)>& adjust = {})
      : engine(adjust), gui(module.Export<ActivateDllFunction>(kActivateDll)()) {
    System::gui = gui;
    engine.RecordCalls(false);
  }
  ~Host() {
    module.Export<DeactivateDllFunction>(kDeactivateDll)();
    System::gui = nullptr;
  }
  Host(const Host&) = delete;
  Host& operator=(const Host&) = delete;

  base::RecordingEngine engine;
  Module module;
  IGui* gui;
};

// The time of one of the run's widgets, texts or commands.
inline void ReportEach(benchmark::State& state) {
  state.counters["each"] =
      benchmark::Counter(static_cast<double>(state.range(0)) * static_cast<double>(state.iterations()),
                         benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

}  // namespace qen::test
