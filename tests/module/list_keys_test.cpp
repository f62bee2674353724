// The two step keys, which the wheel sends as well, over a list.
#include "tests/module/list_fixture.h"

namespace qen::test {
namespace {

class ListKeys : public ListTest {};

TEST_F(ListKeys, GoRound) {
  Open();
  Fill(4);
  Aim(RowPlace(7));  // on the box, below the rows
  Step(kUpKey);
  EXPECT_EQ(Selected(), Indices{}) << "there is none to start from";
  Item(2).selected = 1;
  Step(kUpKey);
  EXPECT_EQ(Selected(), Indices{3});
  EXPECT_EQ(Dispatched(), "2- 3+ ");
  Step(kUpKey);
  EXPECT_EQ(Selected(), Indices{0});
  EXPECT_EQ(Dispatched(), "3- 0+ ");
  Step(kDownKey);
  EXPECT_EQ(Selected(), Indices{3});
  Step(kDownKey);
  EXPECT_EQ(Selected(), Indices{2});
  Step(13);
  MoveTo({1, 1});
  Step(kDownKey);
  EXPECT_EQ(Selected(), Indices{2}) << "other keys, and the cursor elsewhere";
  Dispatched();

  Item(1).info->disabled = 1;
  Item(3).selected = 1;
  Aim(RowPlace(7));
  Step(kDownKey);
  EXPECT_EQ(Selected(), Indices{1}) << "from the first selected one, to a disabled one as well";
  EXPECT_EQ(Dispatched(), "2- 1+ ");
}

TEST_F(ListKeys, ScrollToTheirEntry) {
  Open();
  Fill(40);
  Frame();
  Item(39).selected = 1;
  Aim(RowPlace(5));
  Step(kUpKey);
  EXPECT_EQ(list->info->position, 0);
  Step(kDownKey);
  EXPECT_EQ(list->info->position, 30) << "as far as the scrolling goes";
  Item(39).selected = 0;
  Item(12).selected = 1;
  Step(kDownKey);
  EXPECT_EQ(list->info->position, 11);
}

TEST_F(ListKeys, ThatStepTakeTheHoverBack) {
  Open({}, {35, 0, 0});
  Fill(5);
  Item(1).selected = 1;
  const base::Point at = Project(RowPlace(5) + Vec3{35, 0, 0});
  EXPECT_EQ(PickAt(at, 0, kUpKey), std::nullopt);
  EXPECT_NE(PickAt(at, 0, u'x'), std::nullopt);
}

}  // namespace
}  // namespace qen::test
