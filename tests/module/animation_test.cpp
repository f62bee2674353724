// A page's animations, one at a time.
#include "engine/scene.h"
#include "tests/module/gui_fixture.h"
#include "tests/module/widget_scenes.h"

namespace qen::test {
namespace {

class Animation : public GuiTest {
 protected:
  Animation() {
    engine.AddAnimation(u"in.glb", base::MoveNode(u"~bok", {-90, 0, 0}, {}, 1.0F));
    engine.AddAnimation(u"out.glb", base::MoveNode(u"~bok", {}, {0, 90, 0}, 0.5F));
    AddButtonPage(u"menu", {u"ok"}, u"anim_in in.glb anim_out out.glb");
    page = OpenPage(u"menu.txt");
    ShowOnly(0);
    in = page->anims[0];
  }

  Vec3 Place() { return page->FindNode(u"~bok")->transform->GetTranslation(); }

  ICGUIPageObject* page = nullptr;
  ICGUIAnim* in = nullptr;
};

TEST_F(Animation, PlaysOneAtATimeAndFromItsRestWhenThePageIsShownAgain) {
  for (const std::int32_t position : {-1, 2}) EXPECT_EQ(page->PlayAnim(position, false), nullptr);
  ASSERT_EQ(page->PlayAnim(page->animIn, false), in);
  EXPECT_EQ(page->PlayAnim(page->animOut, false), in) << "the one that plays";
  for (const float left : {-90.0F, -45.0F, 0.0F}) {  // from its first pose on, however long the frame was
    EXPECT_EQ(page->GetPlayingAnim(), in);
    Frame(0.5);
    EXPECT_EQ(Place(), (Vec3{left, 0, 0}));
  }
  Frame(0.1);
  EXPECT_EQ(page->PlayAnim(page->animOut, true), nullptr) << "a looping one is not waited for";
  page->StopAnims();
  page->PlayAnim(page->animOut, false);
  for (const double seconds : {0.0, 1.0}) Frame(seconds);
  EXPECT_EQ(Place(), (Vec3{0, 90, 0})) << "gone, while it is hidden or shown";
  page->Disable(false);
  Frame();
  EXPECT_EQ(Place(), Vec3());
  in->SetFrame(15.0F);
  page->Disable(false);
  Frame();
  EXPECT_EQ(Place(), (Vec3{-45, 0, 0})) << "a frame that was set stays set";
}

// The slider is put on its bar in every update, as if the page rested.
TEST_F(Animation, CarriesASliderAlongFromTheFirstPictureOn) {
  base::SceneData scene;
  AddSlideBar(scene, u"~sbar", -1, {}, false);
  engine.AddAnimation(u"slide.glb", base::MoveNode(u"~sbar", {0, -80, 0}, {}, 0.5F));
  OpenScene(std::move(scene), u"anim_in slide.glb anim_out slide.glb item ~sbar { position 50 }");
  const auto slider = [this] { return gui->GetNodeMatrix(1, u"normal_slider~sbar")->GetTranslation(); };
  gui->GetActivePages().clear();
  Frame();
  const Vec3 rest = slider();
  gui->AddActivePage(1);
  for (const float down : {80.0F, 64.0F, 48.0F, 32.0F, 16.0F, 0.0F, 80.0F, 64.0F}) {
    Frame(0.1);
    EXPECT_NEAR(slider().x, rest.x, 1e-3F);
    EXPECT_NEAR(slider().y, rest.y - down, 1e-3F);
    if (down == 0.0F) gui->RemActivePage(1);
  }
}

}  // namespace
}  // namespace qen::test
