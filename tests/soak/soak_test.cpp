// The GUI of the fuzz programs under random steps of theirs. GUI_SOAK_MESSAGES and GUI_SOAK_SEED in the environment set
// how many and which.
#include <malloc.h>

#include <cstdio>
#include <cstdlib>
#include <random>

#include "engine/drawing.h"
#include "engine/font.h"
#include "fuzz/steps.h"

namespace qen::fuzz {
namespace {

constexpr std::uint64_t kMessages = 100'000;
constexpr std::uint64_t kMessagesOfALife = 1'000;  // until everything is loaded anew

// Without meaning under the sanitizers, which look for leaks themselves.
std::size_t HeapBytes() {
  const auto heap = mallinfo2();
  return heap.uordblks + heap.hblkhd;
}

std::uint64_t FromEnvironment(const char* name, std::uint64_t otherwise) {
  const char* value = std::getenv(name);
  return value != nullptr ? std::strtoull(value, nullptr, 10) : otherwise;
}

// A letter of a step, and behind it what it may need.
std::string AnyStep(std::mt19937& random) {
  std::string step(1, Steps()[random() % Steps().size()].letter);
  for (int i = 0; i < 3; ++i) step += static_cast<char>('0' + random() % 20);
  return step;
}

// The engine keeps the texts that were measured last; now it has the same ones every time.
void FillTextCache() {
  FontManager& fonts = *FontManager::GetSingleton();
  Font* font = fonts.CreateEx(u"Test", -20, 0, 400, false, 1, kDefaultGroup);
  Drawing drawing;
  drawing.BeginText2D();
  drawing.SetFont(font);
  for (int i = 0; i < 1100; ++i) drawing.GetTextRect({}, DT_SINGLELINE, u"%d", i);
  drawing.EndText();
  fonts.Destroy(font);
}

// Loads everything, shows the first page and lists what it asks of the engine for that.
std::vector<std::string> LoadAnew(Stage& stage) {
  stage.GiveBack();
  stage.engine.window = {};
  stage.engine.viewport.Resize(800, 600);
  stage.engine.ime.composition.clear();
  stage.engine.calls.clear();
  stage.engine.RecordCalls(true);
  stage.Load();
  stage.Draw();
  stage.engine.RecordCalls(false);
  FillTextCache();
  return stage.CallNames({""});
}

TEST(Soak, RandomStepsBreakNothing) {
  const std::uint64_t messages = FromEnvironment("GUI_SOAK_MESSAGES", kMessages);
  const std::uint64_t seed = FromEnvironment("GUI_SOAK_SEED", std::random_device{}());
  std::printf("GUI_SOAK_SEED=%llu GUI_SOAK_MESSAGES=%llu\n", 0ULL + seed, 0ULL + messages);
  std::mt19937 random(static_cast<std::uint32_t>(seed));
  Stage stage;
  stage.AddFiles(kEverything);
  const std::vector<std::string> calls = LoadAnew(stage);
  std::vector<std::size_t> heaps;
  for (std::uint64_t sent = 0; sent < messages; sent += kMessagesOfALife) {
    std::string steps;
    for (std::uint64_t i = 0; i < kMessagesOfALife; ++i) steps += AnyStep(random);
    Play(stage, {reinterpret_cast<const std::uint8_t*>(steps.data()), steps.size()}).TakeSteps();
    ASSERT_EQ(LoadAnew(stage), calls) << "after " << sent << " messages, and these: " << steps;
    heaps.push_back(HeapBytes());
  }
  if (heaps.size() < 3) return;
  constexpr std::size_t kRoom = 1024 * 1024;  // for storage as large as the longest queue was
  std::printf("heap %zu to %zu bytes\n", heaps[1], heaps.back());
  EXPECT_LE(heaps.back(), heaps[1] + kRoom);
}

}  // namespace
}  // namespace qen::fuzz
