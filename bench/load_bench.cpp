// The cost of loading and updating a page, a widget, at growing numbers of buttons.
#include <benchmark/benchmark.h>

#include "engine/camera.h"
#include "engine/system.h"
#include "tests/module/big_page.h"

namespace qen::test {
namespace {

// A loaded module without the frame of a test.
struct Host {
  Host() : gui(module.Export<ActivateDllFunction>(kActivateDll)()) {
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

void ReportPerWidget(benchmark::State& state) {
  state.counters["per_widget"] =
      benchmark::Counter(static_cast<double>(state.range(0)) * static_cast<double>(state.iterations()),
                         benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

void LoadPage(benchmark::State& state) {
  Host host;
  AddBigPage(host.engine, u"big", static_cast<std::size_t>(state.range(0)));
  for (auto _ : state) {
    host.gui->AddPage(u"big.txt", &host.engine.camera);
    state.PauseTiming();
    host.gui->Release();
    state.ResumeTiming();
  }
  ReportPerWidget(state);
}

void UpdatePage(benchmark::State& state) {
  Host host;
  AddBigPage(host.engine, u"big", static_cast<std::size_t>(state.range(0)));
  host.gui->AddPage(u"big.txt", &host.engine.camera);
  host.gui->SetViewport(&host.engine.viewport);
  host.gui->GetActivePages() = {0};
  std::int32_t x = 0;
  for (auto _ : state) {
    host.gui->SetCursor(x = (x + 7) % 800, 300);
    host.gui->Update(0, 0, 0);
  }
  ReportPerWidget(state);
}

BENCHMARK(LoadPage)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(UpdatePage)->Arg(100)->Arg(1000)->Arg(10000)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace qen::test

BENCHMARK_MAIN();
