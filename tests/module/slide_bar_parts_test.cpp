// What a slide bar shows, whichever parts and numbers it has.
#include "tests/module/gui_fixture.h"
#include "tests/module/widget_scenes.h"

namespace qen::test {
namespace {

class SlideBarParts : public GuiTest {
 protected:
  void Open(base::SceneData scene, StringView properties = {}) {
    OpenScene(std::move(scene), u"item ~sbar { " + String(properties) + u" }");
    page = gui->GetPageCount() - 1;
    bar = dynamic_cast<ICGUISlideBar*>(Find(u"~sbar", page));
    MoveTo({1, 1});
  }

  void OpenBar(bool vertical, StringView properties = {}) {
    base::SceneData scene;
    AddSlideBar(scene, u"~sbar", -1, {5, 6, 0}, vertical);
    Open(std::move(scene), properties);
  }

  // Where the slider stands now.
  Vec3 Slider() { return gui->GetNodeMatrix(page, u"normal_slider~sbar")->GetTranslation(); }

  std::uint32_t page = 0;
  ICGUISlideBar* bar = nullptr;
};

// The slider's own half size is 2, of which half is taken off; an upright one's is taken in depth, where it is 1.
TEST_F(SlideBarParts, PlaceTheSliderAlongTheBar) {
  OpenBar(false, u"min 10 max 50");
  for (const auto& [position, place] : {std::pair{10, 0.0F}, {30, 30.0F}, {50, 60.0F}, {20, 15.0F}}) {
    bar->info->position = position;
    Frame();
    EXPECT_FLOAT_EQ(Slider().x, 5 - 30 + place - 1);
    EXPECT_FLOAT_EQ(Slider().y, 6);
  }
  OpenBar(true, u"min 10 max 50");
  for (const auto& [position, place] : {std::pair{10, 0.0F}, {30, 30.0F}, {50, 60.0F}, {20, 15.0F}}) {
    bar->info->position = position;
    Frame();
    EXPECT_FLOAT_EQ(Slider().y, 6 + 30 - (place - 0.5F));
    EXPECT_FLOAT_EQ(Slider().x, 5);
  }
}

TEST_F(SlideBarParts, KeepThePositionInRange) {
  struct Row {
    StringView properties;
    std::int32_t wanted;
  };
  const Row rows[] = {{u"position -5", 0},
                      {u"position 500", 100},
                      {u"min 10", 10},
                      {u"min 90 max 10 position 50", 10},
                      {u"min 7 max 7 position 3", 7},
                      {u"min -2147483648 max 2147483647 position 12", 12},
                      {u"min 2147483647 max -2147483648 position 12", INT32_MIN},
                      {u"min 2147483647 max 2147483647", INT32_MAX},
                      {u"min -2147483648 max -2147483648", INT32_MIN},
                      {u"min -99999999999 max 99999999999 position 99999999999", INT32_MAX}};
  for (const bool vertical : {false, true}) {
    for (const Row& row : rows) {
      OpenBar(vertical, row.properties);
      Frame();
      EXPECT_EQ(bar->info->position, row.wanted) << Narrow(row.properties);
      EXPECT_TRUE(std::isfinite(Slider().x) && std::isfinite(Slider().y)) << Narrow(row.properties);
    }
  }
}

TEST_F(SlideBarParts, WorkWithoutEachOther) {
  const Vec3 middle{5, 6, -1};
  for (unsigned parts = 0; parts < 16; ++parts) {
    base::SceneData scene;
    const std::int32_t node = base::AddNode(scene, u"~sbar", -1, {5, 6, 0});
    if ((parts & 1U) != 0) AddPart(scene, u"barx", u"", node, {}, {30, 2, 1});
    if ((parts & 2U) != 0) AddPart(scene, u"slider", u"", node, {-30, 0, 0}, {2, 2, 1});
    if ((parts & 4U) != 0) AddPart(scene, u"down", u"", node, {-36, 0, 0}, {2, 2, 1});
    if ((parts & 8U) != 0) AddPart(scene, u"up", u"", node, {36, 0, 0}, {2, 2, 1});
    Open(std::move(scene), u"position 20");
    Frame();
    DrawPages();
    Aim(middle + Vec3{36, 0, 0});
    ClickHere();
    EXPECT_EQ(bar->info->position, (parts & 8U) != 0 ? 21 : 20) << parts;
    Aim(middle - Vec3{36, 0, 0});
    ClickHere();
    ClickHere();
    EXPECT_EQ(bar->info->position, 20 + ((parts & 8U) != 0 ? 1 : 0) - ((parts & 4U) != 0 ? 2 : 0)) << parts;
    const std::int32_t before = bar->info->position;
    Aim(middle);
    Press();
    Frame();
    ReleaseButton();
    Frame();
    EXPECT_EQ(bar->info->position, (parts & 1U) != 0 ? 50 : before) << parts;
  }
}

TEST_F(SlideBarParts, HideAtOnce) {
  OpenBar(false);
  Frame();
  for (const bool visible : {true, false, true}) {
    bar->SetVisible(visible ? 1 : 0);
    Frame();
    EXPECT_EQ(bar->state, visible ? 1 : 0);
    for (const StringView part : {u"barx", u"slider", u"down", u"up"}) {
      EXPECT_EQ(IsDrawn(u"normal_" + String(part) + u"~sbar"), visible) << Narrow(part);
    }
  }
}

}  // namespace
}  // namespace qen::test
