// Whatever is drawn can be picked where it is seen.
#include "engine/scene.h"
#include "tests/module/gui_fixture.h"

namespace qen::test {
namespace {

base::Quaternion Turn(const Vec3& axis, float angle) {
  const float s = std::sin(angle / 2);
  return {axis.x * s, axis.y * s, axis.z * s, std::cos(angle / 2)};
}

class Picking : public GuiTest {
 protected:
  static base::SceneData Scene(bool camera) {
    base::SceneData scene;
    AddButton(scene, u"plain", {-50, 30, 0});
    AddButton(scene, u"near", {20, 30, 40});
    AddButton(scene, u"far", {60, -60, -120});
    const std::int32_t turned = AddButton(scene, u"turned", {-40, -25, 0});
    scene.nodes[static_cast<std::size_t>(turned)].pose.rotation = Turn({0.6F, 0.8F, 0}, 0.9F);
    const std::int32_t group = base::AddNode(scene, u"group", -1, {10, -10, 0});
    scene.nodes[static_cast<std::size_t>(group)].pose = {{10, -10, 0}, Turn({0, 0, 1}, 0.7F), {0.5F, 1.5F, 0.8F}};
    AddButton(scene, u"scaled", {5, 4, 3}, group);
    if (camera) base::AddCamera(scene, u"Camera01", 0.6F, 2.0F, 5000.0F);
    return scene;
  }

  void Resize(base::Point size) {
    engine.window.size = size;
    engine.viewport.Resize(static_cast<std::uint32_t>(size.x), static_cast<std::uint32_t>(size.y));
  }

  // Hovers the middle of every widget and expects it, and it alone, to notice.
  void ExpectAllPicked(const std::string& what) {
    for (ICGUIObject* widget : gui->GetPageItems(0)) {
      Hover(*widget);
      Frame(0.0);
      for (ICGUIObject* other : gui->GetPageItems(0)) {
        const std::int32_t wanted = other == widget ? 2 : 1;
        EXPECT_EQ(other->state, wanted) << what << ": " << Narrow(other->info->name);
      }
    }
  }
};

TEST_F(Picking, FindsEveryWidgetAtAnySizeOfTheWindow) {
  for (const bool camera : {false, true}) {
    OpenScene(Scene(camera));
    for (const base::Point size : {base::Point{800, 600}, {1920, 1080}, {640, 480}, {300, 900}, {3840, 1000}}) {
      Resize(size);
      ExpectAllPicked(std::to_string(size.x) + "x" + std::to_string(size.y) + (camera ? " with camera" : ""));
    }
    gui->Release();
  }
}

TEST_F(Picking, FollowsAnimations) {
  engine.AddAnimation(u"in.glb", base::MoveNode(u"~bplain", {-200, 30, 0}, {10, -40, 20}, 1.0F));
  OpenScene(Scene(false), u"anim_in in.glb");
  gui->GetPage(0)->PlayAnim(0, false);
  for (int i = 0; i < 5; ++i) {
    Frame(0.25);
    ICGUIObject* plain = Find(u"~bplain");
    const base::Point at = ProjectMiddle(*plain);
    if (at.x < 0) continue;
    Hover(*plain);
    Frame(0.0);
    EXPECT_EQ(plain->state, 2) << "after quarter " << i;
  }
  Matrix4x4 world;
  Find(u"~bplain")->GetMatrix(world);
  EXPECT_NEAR(world.GetTranslation().x, 10.0F, 1e-3F);
  EXPECT_NEAR(world.GetTranslation().z, -20.0F, 1e-3F) << "towards the viewer";
}

TEST_F(Picking, MissesBesideTheBoxAndOutsideTheWindow) {
  OpenScene(Scene(false));
  ICGUIObject* plain = Find(u"~bplain");
  const base::Point middle = ProjectMiddle(*plain);
  // 20 x 10 units are about 101 x 50 pixels here.
  for (const base::Point offset : {base::Point{56, 0}, {-56, 0}, {0, 30}, {0, -30}}) {
    MoveTo({middle.x + offset.x, middle.y + offset.y});
    Frame();
    EXPECT_EQ(plain->state, 1) << offset.x << " " << offset.y;
  }
  for (const base::Point outside : {base::Point{-20, 100}, {100, -1}, {100000, 100000}}) {
    MoveTo(outside);
    Frame();
  }
}

TEST_F(Picking, KeepsTheLastRayWithoutAWindow) {
  OpenScene(Scene(false));
  ICGUIObject* plain = Find(u"~bplain");
  Hover(*plain);
  Frame();
  Resize({0, 0});
  MoveTo({0, 0});
  Frame();
  EXPECT_EQ(plain->state, 2);
}

TEST_F(Picking, TakesTheProjectionFromTheCameraNode) {
  OpenScene(Scene(true));
  const std::vector<base::Call> calls = engine.CallsOf("Camera::SetProjection");
  ASSERT_EQ(calls.size(), 2U);
  const std::vector<double> wanted[] = {{1.0, 80000.0, 1.3333334, 0.7853982}, {2.0, 5000.0, 1.3333334, 0.6}};
  for (std::size_t i = 0; i < 2; ++i) {
    for (std::size_t k = 0; k < 4; ++k) EXPECT_NEAR(std::get<double>(calls[i].arguments[k]), wanted[i][k], 1e-6);
  }
}

TEST_F(Picking, FocusStepsRoundAndPutsTheCursorOnTheWidget) {
  AddButtonPage(u"row", {u"a", u"b", u"c"});
  OpenPage(u"row.txt");
  ShowOnly(0);
  const auto expectFocus = [this](std::int32_t index) {
    EXPECT_EQ(gui->GetPage(0)->focusIndex, index);
    Send(message::kMouseMove);
    Frame();
    EXPECT_EQ(gui->GetPageItems(0)[static_cast<std::size_t>(index)]->state, 2);
  };
  for (const std::int32_t index : {1, 2, 0}) {
    EXPECT_TRUE(gui->FocusNext());
    expectFocus(index);
  }
  for (const std::int32_t index : {2, 1}) {
    EXPECT_TRUE(gui->FocusPrev());
    expectFocus(index);
  }
}

}  // namespace
}  // namespace qen::test
