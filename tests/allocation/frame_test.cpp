// Frames take nothing from the heap once they are warm, whatever they show; drawing included.
#include <functional>

#include "engine/system.h"
#include "tests/module/bag_fixture.h"
#include "tests/module/big_page.h"
#include "tests/module/every_widget.h"

namespace qen::test {

extern std::size_t allocations;  // of the program and the libraries it loads

namespace {

using PlayFrame = std::function<void(std::size_t number)>;

struct WarmFrames : BagTest {
  // Ten thousand buttons, the cursor on another one every other frame.
  PlayFrame ManyButtons() {
    constexpr std::size_t kButtons = 10000;
    AddBigPage(engine, u"big", kButtons);
    OpenPage(u"big.txt");
    return [this](std::size_t number) {
      if (number % 2 == 0) Hover(*gui->GetPage(0)->items[number * 37 % kButtons]);
    };
  }

  // The cursor rests on every widget in turn, and the list scrolls.
  PlayFrame EveryWidgetWith(StringView properties) {
    AddPageOfEveryWidget(engine, u"s", properties);
    AddText(u"texts.txt", u"lang english { str1 \"Some words that do not fit a short string\" }");
    AddText(u"gui.txt", u"lang texts.txt");
    gui->Load(u"gui.txt", &engine.camera);
    OpenPage(u"s.txt");
    ShowOnly(0);
    auto* list = dynamic_cast<ICGUIList*>(Find(u"~llist"));
    for (int i = 0; i < 1000; ++i) list->AddItem()->displayText = u"an entry with a rather long name";
    return [this, list](std::size_t number) {
      const auto& items = gui->GetPage(0)->items;
      ICGUIObject& widget = *items[number % items.size()];
      widget.info->type == widget_type::kSlideBar ? Aim({20, -50, -1}) : Hover(widget);
      list->info->position = static_cast<std::int32_t>(number % 100);
    };
  }
  PlayFrame EveryWidget() { return EveryWidgetWith(u"tooltip 1 textid 1 shadowoff 1"); }

  // A text is edited, and the slide bar dragged whenever the cursor is on it.
  PlayFrame EveryWidgetInUse() {
    PlayFrame play = EveryWidgetWith(u"tooltip 1 textid 1 maxselect 0 editabled 1 position 0");
    Click(*Find(u"~ttext"));
    EXPECT_EQ(Find(u"~ttext")->state, 3);
    Type(u"typed letters");
    Press();
    return play;
  }

  // A bag whose entries turn.
  PlayFrame Bag() {
    ICGUIPageObject* bag = OpenBagOf(5000, ActiveSlots(5000));
    bag->SetBagItems({&red, nullptr, &blue});
    return [this](std::size_t) { gui->FocusNext(); };
  }

  Entry red{0xFF0000, LoadTexture(u"red.png")};
  Entry blue{0x0000FF};
};

struct Scene {
  const char* name;
  PlayFrame (WarmFrames::*open)();
  std::size_t frames;
};

class WarmScene : public WarmFrames, public ::testing::WithParamInterface<Scene> {};

TEST_P(WarmScene, AllocatesNothing) {
  const std::size_t atFirst = allocations;
  const PlayFrame play = (this->*GetParam().open)();
  EXPECT_GT(allocations, atFirst + 100) << "those of the libraries are counted";
  if (gui->GetPageCount() > 0) ShowOnly(0);
  engine.RecordCalls(false);
  std::size_t warm = 0;
  for (std::size_t number = 0; number < 3 * GetParam().frames; ++number) {
    if (number == 2 * GetParam().frames) warm = allocations;
    play(number);
    Frame();
    DrawPages();
  }
  EXPECT_EQ(allocations, warm);
}

INSTANTIATE_TEST_SUITE_P(, WarmScene,
                         ::testing::Values(Scene{"ManyButtons", &WarmFrames::ManyButtons, 14},
                                           Scene{"EveryWidget", &WarmFrames::EveryWidget, 100},
                                           Scene{"EveryWidgetInUse", &WarmFrames::EveryWidgetInUse, 100},
                                           Scene{"Bag", &WarmFrames::Bag, 10}),
                         [](const auto& tested) { return tested.param.name; });

}  // namespace
}  // namespace qen::test
