// The sample on an engine that fails in one call: whatever call that is, the rest goes on, all is given back, and the
// next loading is as if nothing had been.
#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "engine/gui_page_object.h"
#include "engine/scene.h"
#include "engine/scene_node.h"
#include "engine/system.h"
#include "tests/faults/failing_engine.h"
#include "tests/faults/sample_tour.h"

namespace qen::test {
namespace {

std::size_t CountDifferences(const std::vector<std::string>& some, const std::vector<std::string>& others) {
  std::size_t count = 0;
  for (std::size_t i = 0; i < some.size(); ++i) count += some[i] == others[i] ? 0U : 1U;
  return count;
}

// Every so many'th call of a kind is struck, its first and last always; "all" in the environment strikes every call.
constexpr std::size_t kStep = 16;
constexpr std::size_t kShards = 4;

// Also of a scene that could not be registered.
bool FindsTheNodesOfScenes(IGui& gui) {
  for (std::uint32_t i = 0; i < gui.GetPageCount(); ++i) {
    ICGUIPageObject& page = *gui.GetPage(i);
    if (page.scene == nullptr) continue;
    for (const TMNode* node : page.scene->GetNodes()) {
      if (page.FindNode(node->name.c_str()) == nullptr) return false;
    }
  }
  return true;
}

// What came of a run: the sample is loaded, played with and unloaded, then loaded again and looked at.
struct Played {
  bool loaded = false;
  bool findsNodes = false;
  bool struck = false;
  std::vector<const char*> calls;  // of the first life, which is the one that the fault is in
  std::vector<std::string> atFirst;
  std::vector<std::string> afterwards;
  std::string kept;
};

Played Play(std::size_t struckCall, const std::function<void(FailingEngine&)>& prepare = {}) {
  Played played;
  FailingEngine engine(struckCall);
  if (prepare) prepare(engine);
  SampleGui& sample = engine.sample;
  sample.Activate();
  played.loaded = sample.Load();
  played.findsNodes = !engine.plan.HasStruck() || FindsTheNodesOfScenes(*sample.gui);
  PlayTour(sample);
  played.atFirst = Describe(sample);
  sample.gui->Reset();
  sample.gui->Release();
  played.struck = engine.plan.HasStruck();
  played.calls = engine.plan.Calls();
  sample.Load();
  played.afterwards = Describe(sample);
  sample.Deactivate();
  played.kept = engine.Kept();
  return played;
}

const Played& Undisturbed() {
  static const Played played = Play(0);
  return played;
}

// The numbers of the calls to strike, from 1.
std::vector<std::size_t> Chosen(const std::vector<const char*>& calls) {
  const char* wish = std::getenv("GUI_FAULTS");
  const bool all = wish != nullptr && std::string_view(wish) == "all";
  std::map<std::string_view, std::vector<std::size_t>> kinds;
  for (std::size_t i = 0; i < calls.size(); ++i) kinds[calls[i]].push_back(i + 1);
  std::vector<std::size_t> chosen;
  for (const auto& [name, numbers] : kinds) {
    for (std::size_t i = 0; i < numbers.size(); ++i) {
      if (all || i % kStep == 0 || i + 1 == numbers.size()) chosen.push_back(numbers[i]);
    }
  }
  std::ranges::sort(chosen);
  return chosen;
}

class OneFault : public ::testing::TestWithParam<std::size_t> {};

TEST_P(OneFault, SpoilsLittleAndLeavesNothing) {
  const Played& sound = Undisturbed();
  ASSERT_TRUE(sound.loaded);
  ASSERT_EQ(sound.kept, "");
  const std::vector<std::size_t> chosen = Chosen(sound.calls);
  ASSERT_GT(chosen.size(), 100U);
  for (std::size_t i = GetParam(); i < chosen.size(); i += kShards) {
    const std::size_t number = chosen[i];
    SCOPED_TRACE("call " + std::to_string(number) + ", " + sound.calls[number - 1]);
    const Played run = Play(number);
    EXPECT_TRUE(run.struck);
    EXPECT_TRUE(run.findsNodes);
    EXPECT_EQ(run.kept, "");
    EXPECT_EQ(run.afterwards, sound.afterwards);
    constexpr std::size_t kDescriptionCalls = 2;  // without its description the GUI is empty
    if (number <= kDescriptionCalls) continue;
    EXPECT_TRUE(run.loaded);
    ASSERT_EQ(run.atFirst.size(), sound.atFirst.size());
    EXPECT_LE(CountDifferences(run.atFirst, sound.atFirst), 1U) << ::testing::PrintToString(run.atFirst);
  }
}

// The services of an engine that has none of that kind.
struct Missing {
  const char* name;
  void (*takeAway)(FailingEngine& engine);
  bool navigates;  // all the same, if only through empty pages
};

constexpr std::array<Missing, 10> kMissing{{
    {"daemon", [](FailingEngine&) { System::daemon = nullptr; }, false},
    {"sceneMng", [](FailingEngine&) { System::sceneMng = nullptr; }, true},
    {"render", [](FailingEngine&) { System::render = nullptr; }, true},
    {"output", [](FailingEngine&) { System::output = nullptr; }, true},
    {"vfs", [](FailingEngine&) { System::vfs = nullptr; }, false},
    {"timer", [](FailingEngine&) { System::timer = nullptr; }, true},
    {"ime", [](FailingEngine&) { System::ime = nullptr; }, true},
    {"sound", [](FailingEngine&) { System::sound = nullptr; }, true},
    {"managers", [](FailingEngine& engine) { engine.managers = false; }, true},
    {"nothing", [](FailingEngine&) {}, true},
}};

TEST(EngineFaults, AMissingServiceIsStoodToTheEnd) {
  for (const Missing& missing : kMissing) {
    SCOPED_TRACE(missing.name);
    const Played played = Play(0, missing.takeAway);
    EXPECT_EQ(played.kept, "");
    std::size_t shown = 0;
    for (std::size_t i = 1; i < played.afterwards.size(); ++i) {
      const std::string page = std::to_string(i - 1);
      shown += played.afterwards[i].ends_with("settled, active " + page + ", drawn " + page) ? 1U : 0U;
    }
    EXPECT_EQ(shown, missing.navigates ? 9U : 0U) << ::testing::PrintToString(played.afterwards);
  }
}

INSTANTIATE_TEST_SUITE_P(Part, OneFault, ::testing::Range<std::size_t>(0, kShards));

}  // namespace
}  // namespace qen::test
