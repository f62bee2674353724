// The sample on an engine that fails in one call: whatever call that is, the rest goes on, all is given back, and the
// next loading is as if nothing had been.
#include <algorithm>
#include <cstdlib>
#include <map>
#include <string_view>

#include "engine/scene.h"
#include "engine/system.h"
#include "tests/faults/failing_engine.h"
#include "tests/module/bag_fixture.h"

namespace qen::test {
namespace {

using Lines = std::vector<std::string>;

void Click(SampleGui& sample, StringView page, StringView widget) {
  ICGUIObject* found = sample.Find(page, widget);
  if (found == nullptr) return;
  sample.Hover(*found);
  sample.ClickHere();
  sample.Settle();
}

// Shows every page, uses its widgets, clicks its way about, changes the language, saves everything. Any of it may be
// missing.
void PlayTour(SampleGui& sample) {
  IGui& gui = *sample.gui;
  for (std::uint32_t page = 0; page < gui.GetPageCount(); ++page) {
    sample.Show(page);
    for (ICGUIObject* widget : gui.GetPageItems(page)) {
      sample.Hover(*widget);
      sample.Send(message::kWheel, 120);
      const bool leadsAway = widget->info->type == widget_type::kButton;
      if (!leadsAway) sample.ClickHere();
      sample.Send(message::kKey, u'x');
    }
    gui.FocusNext();
    gui.FocusPrev();
    sample.Draw();
  }
  sample.Show(0);
  Click(sample, u"main_menu", u"~boptions");
  Click(sample, u"options", u"~bback");
  Click(sample, u"main_menu", u"~bquit");
  Click(sample, u"quit_dialog", u"~bno");
  Click(sample, u"main_menu", u"~binventory");
  if (auto* bag = gui.GetPage(static_cast<std::uint32_t>(gui.FindPage(u"inventory.glb")))) {
    static Entry entry(0x8040FF);
    bag->SetBagItems({&entry, nullptr, &entry});
    gui.FocusNext();
    sample.Frame();
    gui.FocusPrev();
    sample.Draw();
    bag->SetBagItems({});
  }
  Click(sample, u"inventory_frame", u"~bback");
  for (const String& language : gui.GetLanguages()) gui.SetLanguage(language);
  for (std::uint32_t page = 0; page < gui.GetPageCount(); ++page) gui.SavePage(gui.GetPageFile(page).c_str(), page);
  gui.SaveStyle();
  gui.SaveLanguage(u"texts.txt");
}

// What the loaded sample is and shows, a line for its texts and one for each page.
Lines Describe(FailingEngine& engine) {
  SampleGui& sample = engine.sample;
  IGui& gui = *sample.gui;
  for (int i = 0; i < 2; ++i) sample.MoveTo({-1000, -1000});  // the call that fails may be among these
  Lines lines{std::to_string(gui.GetTexts().size()) + " texts"};
  for (std::uint32_t i = 0; i < gui.GetPageCount(); ++i) {
    ICGUIPageObject& page = *gui.GetPage(i);
    for (const TMNode* node : page.scene != nullptr ? page.scene->GetNodes() : std::vector<TMNode*>()) {
      EXPECT_TRUE(!engine.HasStruck() || page.FindNode(node->name.data()) != nullptr) << Narrow(node->name);
    }
    const bool settled = sample.Show(i);
    sample.Draw();
    const bool alone = gui.GetActivePages() == std::vector{i} && gui.GetRenderPages() == std::vector{i};
    lines.push_back(Narrow(page.baseName) + ": " + std::to_string(page.items.size()) + " widgets, " +
                    std::to_string(page.anims.size()) + " animations, " +
                    std::to_string(sample.engine.render.frame.items.size()) + " drawn, " +
                    (settled && alone ? "shown" : "not shown"));
  }
  return lines;
}

// What came of a run: the sample is loaded, played with and unloaded, then loaded again and looked at.
struct Played {
  bool loaded = false;
  Lines atFirst;  // in the first life, which is the one that the fault is in
  Lines afterwards;
  std::vector<const char*> calls;  // of the first life
};

Played Play(
    std::size_t struck, void (*prepare)(FailingEngine&) = [](FailingEngine&) {}) {
  Played played;
  FailingEngine engine(struck);
  prepare(engine);
  SampleGui& sample = engine.sample;
  sample.Activate();
  played.loaded = sample.Load();
  PlayTour(sample);
  played.atFirst = Describe(engine);
  sample.gui->Reset();
  sample.gui->Release();
  played.calls = engine.calls;
  sample.Load();
  played.afterwards = Describe(engine);
  sample.Deactivate();
  EXPECT_EQ(engine.Kept(), (std::array<std::size_t, 5>{})) << "all is given back";
  return played;
}

// The numbers of the calls to strike: of each kind the first, every 16th and the last; all of them when the environment
// says so.
std::vector<std::size_t> Chosen(const std::vector<const char*>& calls) {
  const char* wish = std::getenv("GUI_FAULTS");
  const std::size_t step = wish != nullptr && std::string_view(wish) == "all" ? 1 : 16;
  std::map<std::string_view, std::vector<std::size_t>> kinds;
  for (std::size_t i = 0; i < calls.size(); ++i) kinds[calls[i]].push_back(i + 1);
  std::vector<std::size_t> chosen;
  for (const auto& [name, numbers] : kinds) {
    for (std::size_t i = 0; i < numbers.size(); ++i) {
      if (i % step == 0 || i + 1 == numbers.size()) chosen.push_back(numbers[i]);
    }
  }
  return chosen;
}

constexpr std::size_t kShards = 4;

class OneFault : public ::testing::TestWithParam<std::size_t> {};

TEST_P(OneFault, SpoilsLittleAndLeavesNothing) {
  const Played sound = Play(0);
  ASSERT_TRUE(sound.loaded);
  const std::vector<std::size_t> chosen = Chosen(sound.calls);
  ASSERT_GT(chosen.size(), 100U);
  for (std::size_t i = GetParam(); i < chosen.size(); i += kShards) {
    const std::size_t number = chosen[i];
    SCOPED_TRACE("call " + std::to_string(number) + ", " + sound.calls[number - 1]);
    const Played run = Play(number);
    EXPECT_GE(run.calls.size(), number);
    EXPECT_EQ(run.afterwards, sound.afterwards);
    constexpr std::size_t kDescriptionCalls = 2;  // without its description the GUI is empty
    if (number <= kDescriptionCalls) continue;
    EXPECT_TRUE(run.loaded);
    ASSERT_EQ(run.atFirst.size(), sound.atFirst.size());
    std::size_t spoilt = 0;
    for (std::size_t line = 0; line < run.atFirst.size(); ++line) spoilt += run.atFirst[line] != sound.atFirst[line];
    EXPECT_LE(spoilt, 1U) << ::testing::PrintToString(run.atFirst);
  }
}

INSTANTIATE_TEST_SUITE_P(Part, OneFault, ::testing::Range<std::size_t>(0, kShards));

// An engine without a service.
TEST(MissingService, IsStoodToTheEnd) {
  const struct {
    const char* service;
    void (*takeAway)(FailingEngine& engine);
    std::ptrdiff_t shown;  // pages, be they empty
  } kCases[] = {
      {"daemon", [](FailingEngine&) { System::daemon = nullptr; }, 0},
      {"sceneMng", [](FailingEngine&) { System::sceneMng = nullptr; }, 9},
      {"render", [](FailingEngine&) { System::render = nullptr; }, 9},
      {"output", [](FailingEngine&) { System::output = nullptr; }, 9},
      {"vfs", [](FailingEngine&) { System::vfs = nullptr; }, 0},
      {"timer", [](FailingEngine&) { System::timer = nullptr; }, 9},
      {"ime", [](FailingEngine&) { System::ime = nullptr; }, 9},
      {"sound", [](FailingEngine&) { System::sound = nullptr; }, 9},
      {"managers", [](FailingEngine& engine) { engine.managers = false; }, 9},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.service);
    const Played played = Play(0, c.takeAway);
    const auto isShown = [](const std::string& line) { return line.ends_with(", shown"); };
    EXPECT_EQ(std::ranges::count_if(played.afterwards, isShown), c.shown)
        << ::testing::PrintToString(played.afterwards);
  }
}

}  // namespace
}  // namespace qen::test
