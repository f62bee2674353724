// What a list costs at growing numbers of entries: filling and clearing for each, a frame in all.
#include "bench/bench_host.h"
#include "tests/module/widget_scenes.h"

namespace qen::test {
namespace {

struct ListHost : Host {
  explicit ListHost(const String& definition = {}) {
    base::SceneData scene;
    AddList(scene, u"long");
    engine.AddScene(u"s.glb", std::move(scene));
    engine.files.AddText(u"s.txt", u"name s.glb " + definition);
    gui->AddPage(u"s.txt", &engine.camera);
    gui->SetViewport(&engine.viewport);
    gui->GetActivePages() = gui->GetRenderPages() = {0};
    gui->GetPage(0)->Disable(false);
    list = dynamic_cast<ICGUIList*>(gui->FindObject(0, u"~llong"));
  }

  void Fill(std::int64_t count) const {
    for (std::int64_t i = 0; i < count; ++i) list->AddItem();
  }

  ICGUIList* list;
};

void FillAndClear(benchmark::State& state) {
  const ListHost host;
  for (auto _ : state) {
    host.Fill(state.range(0));
    host.list->Clear();
  }
  ReportEach(state);
}

// Updates and draws, with the cursor outside.
void PlayFrames(benchmark::State& state, ListHost& host, std::int32_t rowsEach) {
  host.Fill(state.range(0));
  host.gui->SetCursor(1, 1);
  std::int32_t& top = host.list->info->position;
  for (auto _ : state) {
    top = top < state.range(0) - 20 ? top + rowsEach : 0;
    host.gui->Update(0, 0, 0);
    host.engine.Draw([&host] { host.gui->Render(&host.engine.viewport); });
  }
}

void SingleSelection(benchmark::State& state) {
  ListHost host;
  PlayFrames(state, host, 0);
}

void TopRowSelection(benchmark::State& state) {
  ListHost host(u"item ~llong { maxselect 0 }");
  PlayFrames(state, host, 0);
}

void TopRowSelectionScrolling(benchmark::State& state) {
  ListHost host(u"item ~llong { maxselect 0 }");
  PlayFrames(state, host, 1);
}

BENCHMARK(FillAndClear)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(SingleSelection)->Arg(100)->Arg(10000)->Arg(100000)->Unit(benchmark::kMicrosecond);
BENCHMARK(TopRowSelection)->Arg(100)->Arg(10000)->Arg(100000)->Unit(benchmark::kMicrosecond);
BENCHMARK(TopRowSelectionScrolling)->Arg(100)->Arg(10000)->Arg(100000)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace qen::test
