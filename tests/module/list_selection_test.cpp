// The three rules by which the entries of a list are selected, and the order in which they are dispatched.
#include "tests/module/list_fixture.h"

namespace qen::test {
namespace {

class ListSelection : public ListTest {};

TEST_F(ListSelection, OfOneMovesWithTheClick) {
  Open();
  Fill(12);
  ClickRow(2);
  EXPECT_EQ(Selected(), Indices{2});
  EXPECT_EQ(Dispatched(), "2+ ");
  ClickRow(5);
  EXPECT_EQ(Selected(), Indices{5});
  EXPECT_EQ(Dispatched(), "2- 5+ ") << "the old one first";
  ClickRow(5);
  EXPECT_EQ(Selected(), Indices{5});
  EXPECT_EQ(Dispatched(), "");
  EXPECT_EQ(Item(5).state, 0) << "a selected row does not light up";

  list->info->position = 2;
  ClickRow(9);
  EXPECT_EQ(Dispatched(), "5- 11+ ") << "scrolled";
  Item(1).selected = 1;
  Item(4).selected = 1;
  ClickRow(0);
  EXPECT_EQ(Selected(), (Indices{1, 2, 4})) << "of those the host selected, the last one gives way";
  EXPECT_EQ(Dispatched(), "11- 2+ ");
}

TEST_F(ListSelection, OfManyStopsAtTheLimit) {
  Open(u"maxselect 3");
  Fill(8);
  Item(7).selected = 1;  // by the host
  for (const std::uint32_t row : {1U, 4U, 6U}) ClickRow(row);
  EXPECT_EQ(Selected(), (Indices{1, 4, 7})) << "a fourth one is not";
  ClickRow(4);
  EXPECT_EQ(Selected(), (Indices{1, 7}));
  ClickRow(6);
  EXPECT_EQ(Selected(), (Indices{1, 6, 7}));
  list->RemoveItemAt(1);
  ClickRow(0);
  EXPECT_EQ(Selected(), (Indices{0, 5, 6})) << "one that is gone counts no more";
  Aim(RowPlace(2));
  Step(kUpKey);
  EXPECT_EQ(Selected(), (Indices{0, 5, 6})) << "the keys are for one";
  EXPECT_EQ(Dispatched(), "");
}

TEST_F(ListSelection, OfTheTopRowFollowsTheScrolling) {
  Open(u"maxselect 0");
  Fill(30);
  Frame();
  EXPECT_EQ(Selected(), Indices{0});
  EXPECT_EQ(Dispatched(), "0+ ");
  for (int i = 0; i < 3; ++i) Frame();
  EXPECT_EQ(Dispatched(), "") << "once";
  list->info->position = 7;
  Frame();
  EXPECT_EQ(Selected(), Indices{7});
  EXPECT_EQ(Dispatched(), "0- 7+ ");
  ClickRow(3);
  EXPECT_EQ(Selected(), Indices{7}) << "clicks change nothing";

  list->info->position = 8;
  Item(8).info->disabled = 1;
  Frame();
  EXPECT_EQ(Selected(), Indices{7}) << "a disabled row is passed over";
  list->info->position = 9;
  Aim(RowPlace(0));
  Frame();
  EXPECT_EQ(Selected(), Indices{7}) << "nor does the row under the cursor follow";
  MoveTo({1, 1});
  Frame();
  EXPECT_EQ(Selected(), Indices{9});
  EXPECT_EQ(Dispatched(), "7- 9+ ");
}

TEST_F(ListSelection, OfTheTopRowHonoursWhatTheHostChanges) {
  Open(u"maxselect 0");
  Fill(30);
  Frame();
  Dispatched();
  Item(20).selected = 1;
  Frame();
  EXPECT_EQ(Dispatched(), "20- 0+ ") << "a later one is the last of the selection";
  EXPECT_EQ(Selected(), Indices{0});
  list->info->position = 5;
  Frame();
  Dispatched();
  Item(2).selected = 1;
  Frame();
  EXPECT_EQ(Dispatched(), "") << "an earlier one is not";
  EXPECT_EQ(Selected(), (Indices{2, 5}));
  Item(5).selected = 0;
  Frame();
  EXPECT_EQ(Dispatched(), "2- 5+ ");
  Item(10).selected = Item(5).selected;  // from flag to flag
  Frame();
  EXPECT_EQ(Dispatched(), "10- 5+ ");
  Item(3).selected = 1;
  list->info->position = 1;
  Frame();
  Frame();
  EXPECT_EQ(Dispatched(), "5- 1+ 3- 1+ ") << "one more each frame";
  list->info->position = 5;
  Frame();
  Dispatched();
  list->RemoveItemAt(5);
  Frame();
  EXPECT_EQ(Dispatched(), "6+ ") << "the entry that moved up to the top";
  list->RemoveItem(list->GetItem(0));
  EXPECT_EQ(Selected(), Indices{4});
  Frame();
  EXPECT_EQ(Dispatched(), "6- 7+ ");
  list->Clear();
  Fill(3);
  Frame();
  EXPECT_EQ(Dispatched(), "0+ ");
}

TEST_F(ListSelection, ByTheHostShowsTheEntryAndDispatchesNothing) {
  Open(u"font Courier { height 50 }");  // four rows
  Fill(10);
  list->SelectItem(&Item(9));
  EXPECT_EQ(Selected(), Indices{9});
  EXPECT_EQ(list->info->position, 6) << "before the first frame";
  EXPECT_EQ(list->info->max, 6);
  list->SelectItem(&Item(3));
  EXPECT_EQ(list->info->position, 3);
  Item(5).info->disabled = 1;
  list->SelectItem(&Item(5));
  EXPECT_EQ(Selected(), Indices{}) << "a disabled entry is not selected, but the others are no more";
  EXPECT_EQ(list->info->position, 3);
  list->SelectItem(&Item(4));
  EXPECT_EQ(Selected(), Indices{4});
  Frame();
  EXPECT_EQ(Dispatched(), "");
  list->RemoveItemAt(9);
  while (list->GetItemCount() > 2) list->RemoveItemAt(0);
  list->SelectItem(&Item(1));
  EXPECT_EQ(list->info->position, 0);
}

// The list measures itself for it with a ray, which may meet anything.
TEST_F(ListSelection, ByTheHostTakesNoInput) {
  Open(u"message clicked:", {-41, 0, 0.5F});  // the slide bar is in the ray's way
  Fill(10);
  list->info->mouseState = 2;  // as the last update left them
  list->info->key = kDownKey;
  list->SelectItem(&Item(4));
  Deliver();
  EXPECT_TRUE(listener.records.empty());
  EXPECT_EQ(list->info->position, 0);
  EXPECT_EQ(list->info->mouseState, 2U);
  EXPECT_EQ(list->info->key, kDownKey);
}

TEST_F(ListSelection, PassesDisabledRowsOver) {
  Open();
  Fill(3);
  Item(1).info->disabled = 1;
  ClickRow(1);
  EXPECT_EQ(Selected(), Indices{});
  EXPECT_EQ(Item(1).state, 0);
  list->SetDisabled(1);
  ClickRow(2);
  EXPECT_EQ(Selected(), Indices{2}) << "the list's own flag is its slide bar's";
}

}  // namespace
}  // namespace qen::test
