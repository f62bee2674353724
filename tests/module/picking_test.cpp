// Whatever is drawn can be picked where it is seen.
#include "engine/scene.h"
#include "tests/module/gui_fixture.h"

namespace qen::test {
namespace {

class Picking : public GuiTest {
 protected:
  // Buttons nearer and farther, turned, and scaled by a parent.
  void Open(bool camera) {
    base::SceneData scene;
    AddButton(scene, u"plain", {-50, 30, 0});
    AddButton(scene, u"near", {20, 30, 40});
    AddButton(scene, u"far", {60, -60, -120});
    const std::int32_t turned = AddButton(scene, u"turned", {-40, -25, 0});
    scene.nodes[static_cast<std::size_t>(turned)].pose.rotation = {0.26F, 0.35F, 0, 0.9F};
    const std::int32_t group = base::AddNode(scene, u"group");
    scene.nodes.back().pose = {{10, -10, 0}, {0, 0, 0.34F, 0.94F}, {0.5F, 1.5F, 0.8F}};
    AddButton(scene, u"scaled", {5, 4, 3}, group);
    if (camera) base::AddCamera(scene, u"Camera01", 0.6F, 2.0F, 5000.0F);
    OpenScene(std::move(scene));
  }

  void Resize(base::Point size) {
    engine.window.size = size;
    engine.viewport.Resize(static_cast<std::uint32_t>(size.x), static_cast<std::uint32_t>(size.y));
  }

  // The widgets that notice the cursor there.
  std::string HoveredAt(base::Point client) {
    MoveTo(client);
    return Hovered();
  }
  std::string Hovered() {
    Frame(0.0);
    std::string hovered;
    for (const ICGUIObject* widget : gui->GetPageItems(0)) {
      if (widget->state == 2) hovered += Narrow(widget->info->name);
    }
    return hovered;
  }
};

TEST_F(Picking, FindsEveryWidgetAtAnySizeOfTheWindow) {
  for (const bool camera : {false, true}) {
    Open(camera);
    for (const base::Point size : {base::Point{800, 600}, {1920, 1080}, {300, 900}, {3840, 1000}}) {
      Resize(size);
      for (ICGUIObject* widget : gui->GetPageItems(0)) {
        EXPECT_EQ(HoveredAt(ProjectMiddle(*widget)), Narrow(widget->info->name)) << size.x << "x" << size.y << camera;
      }
    }
    gui->Release();
  }
}

TEST_F(Picking, EndsAtTheEdgesOfTheBox) {
  Open(false);
  const auto [x, y] = ProjectMiddle(*Find(u"~bplain"));
  for (const base::Point offset : {base::Point{48, 0}, {-48, 0}, {0, 22}, {0, -22}}) {  // of 101 x 50 pixels
    EXPECT_EQ(HoveredAt({x + offset.x, y + offset.y}), "~bplain") << offset.x << " " << offset.y;
    EXPECT_EQ(HoveredAt({x + offset.x * 5 / 4, y + offset.y * 5 / 4}), "") << offset.x << " " << offset.y;
  }
  for (const base::Point outside : {base::Point{-20, 100}, {100, -1}, {100000, 100000}}) HoveredAt(outside);
  HoveredAt({x, y});
  Resize({0, 0});
  EXPECT_EQ(HoveredAt({0, 0}), "~bplain") << "without a window it keeps its ray";
}

TEST_F(Picking, FocusGoesRoundBothWays) {
  AddButtonPage(u"row", {u"a", u"b", u"c"});
  OpenPage(u"row.txt");
  ShowOnly(0);
  std::string seen;
  for (const char* step = "nnnnpppp"; *step != 0; ++step) {
    EXPECT_TRUE(*step == 'n' ? gui->FocusNext() : gui->FocusPrev());
    Send(message::kMouseMove);
    seen += Hovered();
  }
  EXPECT_EQ(seen, "~bb~bc~ba~bb~ba~bc~bb~ba");
}

}  // namespace
}  // namespace qen::test
