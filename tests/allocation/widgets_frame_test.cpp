// Warm frames of a page with a widget of every kind take nothing from the heap, drawing included.
#include "tests/allocation/counting_new.h"
#include "tests/module/every_widget.h"

namespace qen::test {
namespace {

class WarmWidgets : public GuiTest {
 protected:
  void Open(StringView properties) {
    AddPageOfEveryWidget(engine, u"s", properties);
    AddText(u"texts.txt", u"lang english { str1 \"Some words that do not fit a short string\" }");
    AddText(u"gui.txt", u"lang texts.txt");
    gui->Load(u"gui.txt", &engine.camera);
    OpenPage(u"s.txt");
    ShowOnly(0);
    list = dynamic_cast<ICGUIList*>(Find(u"~llist"));
    for (int i = 0; i < 1000; ++i) list->AddItem()->displayText = u"an entry with a rather long name";
    engine.RecordCalls(false);
  }

  // The cursor rests on every widget in turn, and the list scrolls.
  void PlayFrames() {
    for (int i = 0; i < 100; ++i) {
      const auto& items = gui->GetPage(0)->items;
      ICGUIObject& widget = *items[static_cast<std::size_t>(i) % items.size()];
      widget.info->type == widget_type::kSlideBar ? Aim({20, -50, -1}) : Hover(widget);
      list->info->position = i;
      Frame();
      DrawPages();
    }
  }

  std::size_t CountWarm() {
    PlayFrames();
    PlayFrames();
    const std::size_t before = AllocationCount();
    PlayFrames();
    return AllocationCount() - before;
  }

  ICGUIList* list = nullptr;
};

TEST_F(WarmWidgets, AllocateNothing) {
  Open(u"tooltip 1 textid 1 shadowoff 1");
  EXPECT_EQ(CountWarm(), 0U);
}

TEST_F(WarmWidgets, AllocateNothingWhileTheyAreUsed) {
  Open(u"tooltip 1 textid 1 maxselect 0 editabled 1 position 0");
  Click(*Find(u"~ttext"));
  ASSERT_EQ(Find(u"~ttext")->state, 3);
  Type(u"typed letters");
  Press();  // drags the slide bar whenever the cursor is on it
  EXPECT_EQ(CountWarm(), 0U);
}

}  // namespace
}  // namespace qen::test
