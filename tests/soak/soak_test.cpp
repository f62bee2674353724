// The sample under random messages and calls of the host. GUI_SOAK_MESSAGES and GUI_SOAK_SEED in the environment set
// how many and which.
#include <gtest/gtest.h>
#include <malloc.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <map>
#include <random>
#include <set>

#include "engine/drawing.h"
#include "engine/font.h"
#include "engine/gui_page_object.h"
#include "engine/node_draw_info.h"
#include "tests/sample/sample_gui.h"

// Of the sanitizers, where they are.
extern "C" __attribute__((weak)) std::size_t __sanitizer_get_current_allocated_bytes();  // NOLINT

namespace qen::test {
namespace {

constexpr std::uint64_t kMessages = 100'000;
constexpr std::uint64_t kMessagesAtHome = 1'000;  // from one rest on the first page to the next
constexpr std::uint64_t kRestsOfALife = 10;       // until everything is loaded anew
constexpr std::uint32_t kMostEntries = 100;

std::size_t HeapBytes() {
  if (__sanitizer_get_current_allocated_bytes != nullptr) return __sanitizer_get_current_allocated_bytes();
  const auto heap = mallinfo2();
  return heap.uordblks + heap.hblkhd;
}

std::uint64_t FromEnvironment(const char* name, std::uint64_t otherwise) {
  const char* value = std::getenv(name);
  return value != nullptr ? std::strtoull(value, nullptr, 10) : otherwise;
}

class Soak : public ::testing::Test {
 protected:
  Soak() {
    sample.Activate();
    sample.Load();
  }

  std::uint32_t Below(std::size_t end) { return static_cast<std::uint32_t>(random() % end); }
  bool OneIn(std::uint32_t times) { return Below(times) == 0; }

  std::uint32_t AnyPage() { return Below(sample.gui->GetPageCount()); }

  // A widget of an active page, or of any.
  ICGUIObject* AnyWidget() {
    const auto& active = sample.gui->GetActivePages();
    const std::uint32_t page = active.empty() || OneIn(20) ? AnyPage() : active[Below(active.size())];
    const auto items = sample.gui->GetPageItems(page);
    return items.empty() ? nullptr : items[Below(items.size())];
  }

  void SendAny() {
    struct Action {
      std::uint32_t weight;
      void (Soak::*take)();
    };
    static constexpr std::array<Action, 9> kActions{{{25, &Soak::Move},
                                                     {25, &Soak::Frame},
                                                     {10, &Soak::Deliver},
                                                     {16, &Soak::Button},
                                                     {8, &Soak::Wheel},
                                                     {10, &Soak::Key},
                                                     {3, &Soak::Draw},
                                                     {2, &Soak::CallTheGui},
                                                     {1, &Soak::ChangeWidget}}};
    std::uint32_t draw = Below(100);
    for (const Action& action : kActions) {
      if (draw < action.weight) return (this->*action.take)();
      draw -= action.weight;
    }
  }

  void Move() {
    const auto x = static_cast<std::int32_t>(Below(900)) - 50;
    const auto y = static_cast<std::int32_t>(Below(700)) - 50;
    ICGUIObject* widget = OneIn(4) ? nullptr : AnyWidget();
    const auto place = widget != nullptr ? sample.PlaceOf(*widget) : std::nullopt;
    sample.MoveTo(place.value_or(base::Point{x, y}));
  }

  void Frame() {
    sample.engine.Animate(static_cast<double>(Below(200)) / 1000.0);
    sample.Send(message::kFrame);
    CheckFrame();
  }

  void Deliver() { sample.Send(message::kDeliverQueue); }

  void Button() { sample.Send(OneIn(2) ? message::kButtonDown : message::kButtonUp, OneIn(10) ? Below(4) : 1); }

  void Wheel() { sample.Send(message::kWheel, OneIn(2) ? 120U : 0xFF88U); }

  void Key() {
    constexpr std::array<std::uint32_t, 8> kKeys{8, 13, 38, 40, u'a', u'~', 0xD83D, 0xDE00};
    sample.Send(message::kKey, OneIn(5) ? Below(0x10000) : kKeys[Below(8)]);
  }

  void Draw() { sample.Draw(); }

  void CallTheGui() {
    constexpr std::array<void (*)(Soak&, IGui&), 12> kCalls{{
        [](Soak& soak, IGui& gui) { gui.SetPage(soak.AnyPage()); },
        [](Soak& soak, IGui& gui) { gui.AddRenderPage(soak.AnyPage()); },
        [](Soak& soak, IGui& gui) { gui.RemRenderPage(soak.AnyPage()); },
        [](Soak& soak, IGui& gui) { gui.AddActivePage(soak.AnyPage()); },
        [](Soak& soak, IGui& gui) { gui.RemActivePage(soak.AnyPage()); },
        [](Soak& soak, IGui& gui) { gui.SetQuiet(soak.OneIn(2) ? 1 : 0); },
        [](Soak&, IGui& gui) { gui.FocusNext(); },
        [](Soak&, IGui& gui) { gui.FocusPrev(); },
        [](Soak& soak, IGui& gui) { gui.SetLanguage(soak.OneIn(2) ? u"german" : u"arabic"); },
        [](Soak&, IGui& gui) { gui.ClearUndo(); },
        [](Soak&, IGui& gui) { gui.Reset(); },
        [](Soak& soak, IGui& gui) { gui.GetPage(soak.AnyPage())->StopAnims(); },
    }};
    kCalls[Below(kCalls.size())](*this, *sample.gui);
  }

  void ChangeWidget() {
    ICGUIObject* widget = AnyWidget();
    if (widget == nullptr) return;
    if (auto* list = dynamic_cast<ICGUIList*>(widget)) return ChangeList(*list);
    constexpr std::array<void (*)(Soak&, ICGUIObject&), 4> kChanges{{
        [](Soak& soak, ICGUIObject& changed) { changed.SetVisible(soak.Below(2)); },
        [](Soak& soak, ICGUIObject& changed) { changed.SetDisabled(soak.Below(2)); },
        [](Soak& soak, ICGUIObject& changed) { changed.info->position = static_cast<std::int32_t>(soak.random()); },
        [](Soak& soak, ICGUIObject& changed) { changed.SetShowBox(soak.Below(2)); },
    }};
    kChanges[Below(kChanges.size())](*this, *widget);
  }

  void ChangeList(ICGUIList& list) {
    const std::uint32_t count = list.GetItemCount();
    switch (Below(6)) {
      case 0:
        return list.Clear();
      case 1:
        return list.RemoveItemAt(Below(count + 1));
      case 2:
        return list.SelectItem(list.GetItem(Below(count + 1)));
      case 3:
        list.info->position = static_cast<std::int32_t>(random());
        return;
      default:
        if (count < kMostEntries) list.AddItem()->displayText = u"an entry";
    }
  }

  // How many of the button's meshes are drawn.
  static std::uint32_t MeshesOn(const ICGUIObject* button) {
    if (button == nullptr) return 0;
    const std::set<const TMNode*> nodes{button->normalNode, button->onMouseNode, button->disabledNode};
    std::uint32_t on = 0;
    for (const TMNode* node : nodes) {
      const auto* info = node != nullptr ? static_cast<const NodeDrawInfo*>(node->userData) : nullptr;
      on += info != nullptr && info->drawn != 0 ? 1U : 0U;
    }
    return on;
  }

  void CheckWidget(ICGUIObject& widget) {
    SCOPED_TRACE(Narrow(widget.info->name));
    const std::uint32_t meshes = widget.info->visible != 0 ? 1 : 0;
    if (widget.info->type == widget_type::kButton) {
      ASSERT_EQ(MeshesOn(&widget), meshes);
    }
    if (auto* check = dynamic_cast<ICGUICheckButton*>(&widget)) {
      ASSERT_EQ(MeshesOn(check->GetCheckedButton()) + MeshesOn(check->GetUncheckedButton()), meshes);
    }
    if (auto* text = dynamic_cast<ICGUIText*>(&widget)) {
      ASSERT_LE(text->GetEditText().size(), static_cast<std::size_t>(std::max(text->GetMaxChars(), 0)));
    }
    auto* list = dynamic_cast<ICGUIList*>(&widget);
    if (list != nullptr) {
      for (const std::uint32_t index : list->GetSelectedIndices(selected)) ASSERT_LT(index, list->GetItemCount());
    }
    const bool hasRange = widget.info->type == widget_type::kSlideBar || list != nullptr;
    if (!hasRange || widget.info->visible == 0) return;
    // A list that has lost entries pulls its position back one update later.
    const auto [last, isFirst] = lastMax.try_emplace(&widget, std::numeric_limits<std::int32_t>::max());
    ASSERT_GE(widget.info->position, widget.info->min);
    ASSERT_LE(widget.info->position, list != nullptr ? std::max(last->second, widget.info->max) : widget.info->max);
    last->second = widget.info->max;
  }

  void CheckFrame() {
    IGui& gui = *sample.gui;
    for (const std::uint32_t page : gui.GetRenderPages()) ASSERT_LT(page, gui.GetPageCount());
    for (const std::uint32_t page : gui.GetActivePages()) {
      ASSERT_LT(page, gui.GetPageCount());
      for (ICGUIObject* widget : gui.GetPageItems(page)) CheckWidget(*widget);
      if (HasFatalFailure()) return;
    }
  }

  // From wherever it is, the GUI comes to rest on its first page, with nothing waiting.
  void GoHome() {
    IGui& gui = *sample.gui;
    sample.MoveTo({-1000, -1000});
    sample.Send(message::kButtonUp, 1);
    // Every page change that waits takes its time.
    constexpr int kPatience = 20;
    for (int i = 0; i < kPatience && !(sample.Settle() && sample.Offered() == 0);) ++i;
    ASSERT_TRUE(sample.Show(0));
    ASSERT_EQ(gui.GetActivePages(), std::vector<std::uint32_t>{0});
    ASSERT_EQ(gui.GetRenderPages(), std::vector<std::uint32_t>{0});
    ASSERT_EQ(sample.Offered(), 0U);
    gui.ClearUndo();
  }

  // As in the beginning. What the recording devices have noted is let go.
  void BeginAnew() {
    sample.gui->Release();
    lastMax.clear();
    sample.engine.files.reads = {};
    sample.engine.sound.played = {};
    sample.engine.ime.changes = {};
    sample.engine.log = {};
    sample.engine.errors = {};
    ASSERT_TRUE(sample.Load());
    ASSERT_NO_FATAL_FAILURE(GoHome());
    FillTextCache();
  }

  // The engine keeps the texts that were measured last; now it has the same ones every time.
  static void FillTextCache() {
    constexpr int kTexts = 1100;
    FontManager& fonts = *FontManager::GetSingleton();
    Font* font = fonts.CreateEx(u"Test", -20, 0, 400, false, 1, kDefaultGroup);
    Drawing drawing;
    drawing.BeginText2D();
    drawing.SetFont(font);
    for (int i = 0; i < kTexts; ++i) drawing.GetTextRect({}, DT_SINGLELINE, u"%d", i);
    drawing.EndText();
    fonts.Destroy(font);
  }

  std::mt19937 random{1};  // seeded by the test
  SampleGui sample;
  std::vector<std::uint32_t> selected;
  std::map<const ICGUIObject*, std::int32_t> lastMax;  // at the last look
};

TEST_F(Soak, RandomMessagesBreakNothing) {
  const std::uint64_t messages = FromEnvironment("GUI_SOAK_MESSAGES", kMessages);
  const std::uint64_t seed = FromEnvironment("GUI_SOAK_SEED", std::random_device{}());
  const std::string how = "GUI_SOAK_SEED=" + std::to_string(seed) + " GUI_SOAK_MESSAGES=" + std::to_string(messages);
  std::printf("%s\n", how.c_str());
  SCOPED_TRACE(how);
  random.seed(static_cast<std::uint32_t>(seed));
  std::vector<std::size_t> heaps;
  ASSERT_NO_FATAL_FAILURE(BeginAnew());
  for (std::uint64_t sent = 1; sent <= messages; ++sent) {
    SCOPED_TRACE(sent);
    ASSERT_NO_FATAL_FAILURE(SendAny());
    if (sent % kMessagesAtHome != 0) continue;
    ASSERT_NO_FATAL_FAILURE(GoHome());
    if (sent % (kMessagesAtHome * kRestsOfALife) != 0) continue;
    ASSERT_NO_FATAL_FAILURE(BeginAnew());
    heaps.push_back(HeapBytes());
  }
  if (heaps.size() < 3) return;
  constexpr std::size_t kRoom = std::size_t{2} * 1024 * 1024;  // for storage as large as the longest queue was
  std::printf("heap %zu to %zu bytes\n", heaps[1], heaps.back());
  EXPECT_LE(heaps.back(), heaps[1] + kRoom);
}

}  // namespace
}  // namespace qen::test
