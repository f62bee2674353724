// The same screen for every GUI: buttons with labels of twelve letters, in rows and columns that fill the view, the
// cursor on another button in every frame.
#pragma once

#include <benchmark/benchmark.h>
#include <malloc.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>

namespace qen::bench {

inline constexpr std::array<std::int64_t, 4> kButtonCounts{100, 1000, 10'000, 100'000};
inline constexpr std::int32_t kViewWidth = 1280;  // pixels, of frames that are really drawn
inline constexpr std::int32_t kViewHeight = 960;
inline constexpr float kFrameSeconds = 1.0F / 60.0F;

inline std::string LabelOf(std::size_t button) {
  std::array<char, 16> text{};
  std::snprintf(text.data(), text.size(), "Lantern%05u", static_cast<unsigned>(button));
  return text.data();
}

// Where a button is: its column, its row, and how many of each there are.
struct Grid {
  explicit Grid(std::size_t buttons)
      : columns(static_cast<std::size_t>(std::ceil(std::sqrt(static_cast<double>(buttons))))) {}

  // A view in pixels that shows all of them, with their whole labels.
  static constexpr float kStepX = 112.0F;
  static constexpr float kStepY = 32.0F;
  [[nodiscard]] float Width() const { return kStepX * static_cast<float>(columns); }
  [[nodiscard]] float Height() const { return kStepY * static_cast<float>(columns); }
  [[nodiscard]] float X(std::size_t button) const { return kStepX * static_cast<float>(Column(button)); }
  [[nodiscard]] float Y(std::size_t button) const { return kStepY * static_cast<float>(Row(button)); }
  static constexpr float kButtonWidth = 104.0F;
  static constexpr float kButtonHeight = 24.0F;

  [[nodiscard]] std::size_t Column(std::size_t button) const { return button % columns; }
  [[nodiscard]] std::size_t Row(std::size_t button) const { return button / columns; }

  std::size_t columns;
};

inline std::size_t HeapBytes() {
  const struct mallinfo2 heap = mallinfo2();
  return heap.uordblks + heap.hblkhd;
}

// A screen is made with a number of buttons, and has:
//   kMost                     the most buttons that are measured
//   kLoads                    whether there is anything to load
//   Load(), Unload()          from a definition; what the definition refers to is there already
//   Update(hovered)           a frame's input and update, the cursor on that button
//   Draw()                    the frame's drawing
//   LoadSceneAlone()          only where a scene is loaded too: that without widgets
// The counter "bytes" of what is loaded is the heap that it takes, for each button.
template <class Screen, void (Screen::*kLoad)()>
void LoadScreen(benchmark::State& state) {
  Screen screen(static_cast<std::size_t>(state.range(0)));
  std::size_t bytes = 0;
  for (auto _ : state) {
    state.PauseTiming();
    const std::size_t before = HeapBytes();
    state.ResumeTiming();
    (screen.*kLoad)();
    state.PauseTiming();
    bytes = HeapBytes() - before;
    screen.Unload();
    state.ResumeTiming();
  }
  state.counters["bytes"] = static_cast<double>(bytes) / static_cast<double>(state.range(0));
}

template <class Screen, bool kDraws>
void PlayScreen(benchmark::State& state) {
  constexpr int kWarmUp = 3;  // frames, in which what is kept from frame to frame is made
  const auto count = static_cast<std::size_t>(state.range(0));
  Screen screen(count);
  screen.Load();
  std::size_t hovered = 0;
  const auto play = [&] {
    hovered = (hovered + 37) % count;
    screen.Update(hovered);
    if constexpr (kDraws) screen.Draw();
  };
  for (int frame = 0; frame < kWarmUp; ++frame) play();
  for (auto _ : state) play();
  screen.Unload();
}

template <class Screen>
void ForEachCount(benchmark::internal::Benchmark* made) {
  for (const std::int64_t count : kButtonCounts) {
    if (count <= Screen::kMost) made->Arg(count);
  }
  made->Unit(benchmark::kMicrosecond);
}

// A whole program: loads, plays frames and ends, for measuring the process from outside.
template <class Screen>
int PlayWhole(std::size_t buttons, int frames) {
  Screen screen(buttons);
  screen.Load();
  for (int frame = 0; frame < frames; ++frame) {
    screen.Update(static_cast<std::size_t>(frame) * 37 % buttons);
    screen.Draw();
  }
  screen.Unload();
  return 0;
}

// Loading and frames for a renderer that does nothing.
template <class Screen>
void RegisterScreens() {
  if constexpr (Screen::kLoads) {
    benchmark::RegisterBenchmark("Load", LoadScreen<Screen, &Screen::Load>)->Apply(ForEachCount<Screen>);
  }
  if constexpr (requires(Screen screen) { screen.LoadSceneAlone(); }) {
    benchmark::RegisterBenchmark("LoadSceneAlone", LoadScreen<Screen, &Screen::LoadSceneAlone>)
        ->Apply(ForEachCount<Screen>);
  }
  benchmark::RegisterBenchmark("Update", PlayScreen<Screen, false>)->Apply(ForEachCount<Screen>);
  benchmark::RegisterBenchmark("UpdateAndDraw", PlayScreen<Screen, true>)->Apply(ForEachCount<Screen>);
}

// Whole frames with OpenGL: the processor time of the process, since drivers have threads.
template <class Screen>
void RegisterFrames(const char* name) {
  benchmark::RegisterBenchmark(name, PlayScreen<Screen, true>)->Apply(ForEachCount<Screen>)->MeasureProcessCPUTime();
}

// The main function of a benchmark program. With `--whole BUTTONS FRAMES` it is a whole program instead.
template <class Screen, class Register>
int RunBenchmarks(int argc, char** argv, const Register& registerAll) {
  if (argc == 4 && std::string_view(argv[1]) == "--whole") {
    return PlayWhole<Screen>(std::strtoul(argv[2], nullptr, 10), std::atoi(argv[3]));
  }
  registerAll();
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}

}  // namespace qen::bench
