// What loading, updating and delivering cost for each widget, text or command, at growing numbers of them.
#include <benchmark/benchmark.h>

#include "bench/bench_host.h"
#include "engine/msg_daemon.h"
#include "engine/system.h"
#include "tests/module/bag_fixture.h"
#include "tests/module/big_page.h"

namespace qen::test {
namespace {

void LoadPage(benchmark::State& state) {
  Host host;
  AddBigPage(host.engine, u"big", static_cast<std::size_t>(state.range(0)));
  for (auto _ : state) {
    host.gui->AddPage(u"big.txt", &host.engine.camera);
    state.PauseTiming();
    host.gui->Release();
    state.ResumeTiming();
  }
  ReportEach(state);
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
  ReportEach(state);
}

void AddPages(Host& host, std::int64_t count) {
  for (std::int64_t i = 0; i < count; ++i) {
    const std::string digits = std::to_string(i);
    const String name(digits.begin(), digits.end());
    AddBigPage(host.engine, name, 10);
    host.gui->AddPage((name + u".txt").c_str(), &host.engine.camera);
  }
}

void LoadPages(benchmark::State& state) {
  Host host;
  for (auto _ : state) {
    AddPages(host, state.range(0));
    state.PauseTiming();
    host.gui->Release();
    state.ResumeTiming();
  }
  ReportEach(state);
}

// A frame of one page while others are loaded, neither active nor drawn.
void UpdateAmongPages(benchmark::State& state) {
  Host host;
  AddPages(host, state.range(0));
  host.gui->SetViewport(&host.engine.viewport);
  host.gui->GetActivePages() = host.gui->GetRenderPages() = {0};
  for (auto _ : state) {
    host.gui->Update(0, 0, 0);
    host.engine.Draw([&host] { host.gui->Render(&host.engine.viewport); });
  }
}

void FindWidget(benchmark::State& state) {
  Host host;
  AddBigPage(host.engine, u"big", static_cast<std::size_t>(state.range(0)));
  host.gui->AddPage(u"big.txt", &host.engine.camera);
  for (auto _ : state) benchmark::DoNotOptimize(host.gui->FindObject(0, u"~b77"));
}

void LoadBag(benchmark::State& state) {
  Host host;
  const auto slots = static_cast<std::size_t>(state.range(0));
  AddBag(host.engine, u"bag", slots, ActiveSlots(slots));
  for (auto _ : state) {
    host.gui->AddBagPage(u"bag.txt", nullptr);
    state.PauseTiming();
    host.gui->Release();
    state.ResumeTiming();
  }
  ReportEach(state);
}

void UpdateBag(benchmark::State& state) {
  Host host;
  const auto slots = static_cast<std::size_t>(state.range(0));
  AddBag(host.engine, u"bag", slots, ActiveSlots(slots));
  host.gui->AddBagPage(u"bag.txt", nullptr);
  Entry entry(1);
  ICGUIPageObject& bag = *host.gui->GetPage(0);
  bag.SetBagItems(std::vector<IBagEntry*>(slots, &entry));
  for (auto _ : state) bag.Pick(nullptr, 0, 0, 0, 0, 0);
  ReportEach(state);
}

void LoadTexts(Host& host, std::int64_t count) {
  String table = u"lang english {\n";
  for (std::int64_t i = 0; i < count; ++i) {
    const std::string digits = std::to_string(i);
    const String id(digits.begin(), digits.end());
    table += u"str" + id + u" \"Some words with the number " + id + u"\"\n";
  }
  host.engine.files.AddText(u"texts.txt", table + u"}");
  host.engine.files.AddText(u"gui.txt", u"lang texts.txt");
  host.gui->Load(u"gui.txt", nullptr);
}

void LoadLanguage(benchmark::State& state) {
  Host host;
  LoadTexts(host, state.range(0));
  for (auto _ : state) host.gui->SetLanguage(u"english");
  ReportEach(state);
}

void FindText(benchmark::State& state) {
  Host host;
  LoadTexts(host, state.range(0));
  for (auto _ : state) benchmark::DoNotOptimize(host.gui->GetText(77).data());
}

// A delivery of many waiting records, each of which the book carries out.
void DeliverWaiting(benchmark::State& state) {
  Host host;
  AddBigPage(host.engine, u"big", 1);
  host.gui->AddPage(u"big.txt", &host.engine.camera);
  for (auto _ : state) {
    state.PauseTiming();
    host.gui->Reset();
    for (std::int64_t i = 0; i < state.range(0); ++i) host.gui->AddRenderPage(0xFFFFFFFF);
    state.ResumeTiming();
    System::daemon->ProcMsg(message::kDeliverQueue, 0, 0, category::kGui);
  }
  ReportEach(state);
}

// A frame of a small page while commands wait.
void UpdateWithWaiting(benchmark::State& state) {
  Host host;
  AddBigPage(host.engine, u"big", 10);
  host.gui->AddPage(u"big.txt", &host.engine.camera);
  host.gui->SetViewport(&host.engine.viewport);
  host.gui->GetActivePages() = {0};
  for (std::int64_t i = 0; i < state.range(0); ++i) host.gui->AddRenderPage(0xFFFFFFFF);
  for (auto _ : state) host.gui->Update(0, 0, 0);
}

BENCHMARK(LoadLanguage)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(DeliverWaiting)->Arg(100)->Arg(10000)->Unit(benchmark::kMicrosecond);
BENCHMARK(UpdateWithWaiting)->Arg(0)->Arg(10000);
BENCHMARK(FindText)->Arg(1000)->Arg(100000);
BENCHMARK(LoadPages)->Arg(10)->Arg(100)->Arg(1000)->Unit(benchmark::kMillisecond);
BENCHMARK(UpdateAmongPages)->Arg(1)->Arg(1000);
BENCHMARK(FindWidget)->Arg(100)->Arg(10000);
BENCHMARK(LoadPage)->Arg(100)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(LoadBag)->Arg(1000)->Arg(16000)->Unit(benchmark::kMillisecond);
BENCHMARK(UpdateBag)->Arg(1000)->Arg(16000)->Unit(benchmark::kMicrosecond);
BENCHMARK(UpdatePage)->Arg(100)->Arg(1000)->Arg(10000)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace qen::test

BENCHMARK_MAIN();
