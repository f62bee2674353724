// The entries of a list as a host handles them, at any time.
#include "tests/module/list_fixture.h"

namespace qen::test {
namespace {

class ListItems : public ListTest {};

TEST_F(ListItems, AreCopiedWithWhatTheyShow) {
  Open();
  Fill(2);
  Item(1).name = u"sword";
  Item(1).textId = 5;
  Item(1).commentId = 6;
  Item(1).selected = 1;
  Item(1).info->tooltip = 9;
  Item(1).info->disabled = 1;
  const ICGUIItem* copy = list->AddItemCopy(list->GetItem(1));
  ASSERT_EQ(list->GetItem(2), copy);
  EXPECT_EQ(copy->name, u"sword");
  EXPECT_EQ(copy->displayText, u"1");
  EXPECT_EQ(copy->textId, 5);
  EXPECT_EQ(copy->commentId, 6);
  EXPECT_EQ(copy->owner, list);
  EXPECT_EQ(copy->selected, 0U) << "the rest is as in a new one";
  EXPECT_EQ(copy->info->tooltip, -1);
  EXPECT_EQ(copy->info->disabled, 0U);
  EXPECT_TRUE(copy->info->messages.empty());
  EXPECT_EQ(list->AddItemCopy(nullptr), nullptr);
  EXPECT_EQ(list->GetItemCount(), 3U);
}

TEST_F(ListItems, AreRemovedFromTheirOwnListOnly) {
  Open();
  Fill(2);
  ICGUIList* own = list;
  Open();
  own->RemoveItem(list->AddItem());
  own->RemoveItem(nullptr);
  own->RemoveItemAt(0xFFFFFFFF);
  EXPECT_EQ(own->GetItemCount(), 2U);
  EXPECT_EQ(own->GetItem(0xFFFFFFFF), nullptr);
}

// The list measures itself for that with a ray, which may meet anything.
TEST_F(ListItems, AreSelectedWithoutInput) {
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

TEST_F(ListItems, ThatAreSteppedToTakeTheHoverBack) {
  Open({}, {35, 0, 0});
  Fill(5);
  Item(1).selected = 1;
  const base::Point at = Project(RowPlace(5) + Vec3{35, 0, 0});
  EXPECT_EQ(PickAt(at, 0, kUpKey), std::nullopt);
  EXPECT_NE(PickAt(at, 0, u'x'), std::nullopt);
}

TEST_F(ListItems, StandAnythingWhileReleased) {
  Open();
  Fill(50);
  list->Release();
  list->Release();
  Frame();
  DrawPages();
  list->AddItem();
  list->SelectItem(list->GetItem(0));
  EXPECT_EQ(Selected(), Indices{0});
}

TEST_F(ListItems, KeepPositionsOutOfTheRangeFromTheScreen) {
  Open();
  Fill(20);
  for (const std::int32_t position : {-1, INT32_MIN, 11, INT32_MAX}) {
    list->info->position = position;
    engine.calls.clear();
    list->Render(Matrix4x4::Identity, {});
    Aim(RowPlace(0));
    ClickHere();
    EXPECT_GE(list->info->position, 0);
    EXPECT_LE(list->info->position, 10);
  }
  list->text->GetFontDesc().lfHeight = 100;
  list->text->RecreateFont();
  Frame();
  EXPECT_EQ(list->info->max, 18) << "two rows of 14 fit a box of 30";
  list->text->GetFontDesc().lfHeight = INT32_MAX;
  list->text->RecreateFont();
  ClickRow(1);
  DrawPages();
  EXPECT_EQ(list->info->max, 20) << "no row fits";
  engine.fonts.missing.insert(u"Courier");
  list->text->GetFontDesc().lfHeight = 7;
  list->text->RecreateFont();
  ClickRow(1);
  engine.calls.clear();
  DrawPages();
  EXPECT_EQ(list->info->max, 20);
  EXPECT_TRUE(engine.CallsOf("Drawing::BeginText3D").empty()) << "nothing is drawn without a font";
}

TEST_F(ListItems, AreKeptWithoutTheNodesOfAList) {
  for (const bool box : {false, true}) {
    base::SceneData scene;
    const std::int32_t node = base::AddNode(scene, u"~lbare");
    if (box) base::AddBox(scene, u"list", node, {}, {30, 15, 1});
    if (!box) AddSlideBar(scene, u"slidery", node, {}, false);
    OpenScene(std::move(scene));
    list = dynamic_cast<ICGUIList*>(Find(u"~lbare", gui->GetPageCount() - 1));
    Fill(30);
    list->info->position = 3;
    ClickRow(2);
    EXPECT_EQ(Selected(), box ? Indices{5} : Indices{});
    list->SelectItem(&Item(29));
    EXPECT_EQ(list->info->position, box ? 20 : 29);
    DrawPages();
  }
}

}  // namespace
}  // namespace qen::test
