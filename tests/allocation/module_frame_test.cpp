// Warm frames take nothing from the heap.
#include "tests/allocation/counting_new.h"
#include "tests/module/bag_fixture.h"
#include "tests/module/big_page.h"
#include "tests/module/gui_fixture.h"

namespace qen::test {
namespace {

class WarmFrames : public GuiTest {
 protected:
  WarmFrames() {
    AddBigPage(engine, u"big", kButtons);
    OpenPage(u"big.txt");
    ShowOnly(0);
    engine.RecordCalls(false);
  }

  // Frames with the cursor on another button each time, drawn.
  void PlayFrames(std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
      Hover(*gui->GetPage(0)->items[i * 37 % kButtons]);
      Frame();
      DrawPages();
    }
  }

  static constexpr std::size_t kButtons = 10000;
};

TEST_F(WarmFrames, AllocateNothingWhileTheCursorMoves) {
  PlayFrames(20);
  const std::size_t before = AllocationCount();
  ASSERT_GT(before, kButtons) << "the counting works for the module";
  PlayFrames(20);
  // The recording renderer's own copy of the frame is not the module's.
  EXPECT_EQ(AllocationCount() - before, 0U);
}

TEST_F(WarmFrames, AllocateNothingWhileTheCursorRests) {
  PlayFrames(3);
  const std::size_t before = AllocationCount();
  for (int i = 0; i < 10; ++i) Frame();
  EXPECT_EQ(AllocationCount() - before, 0U);
}

TEST_F(BagTest, AllocatesNothingWhileItsEntriesTurn) {
  constexpr std::size_t kSlots = 5000;
  ICGUIPageObject* bag = OpenBagOf(kSlots, ActiveSlots(kSlots));
  engine.RecordCalls(false);
  Entry red(0xFF0000, LoadTexture(u"red.png"));
  Entry blue(0x0000FF);
  bag->SetBagItems({&red, nullptr, &blue});
  const auto playFrames = [this](int count) {
    for (int i = 0; i < count; ++i) {
      gui->FocusNext();
      Frame();
      DrawPages();
    }
  };
  playFrames(3);
  const std::size_t before = AllocationCount();
  ASSERT_GT(before, kSlots);
  playFrames(10);
  EXPECT_EQ(AllocationCount() - before, 0U);
}

}  // namespace
}  // namespace qen::test
