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
  }

  Vec3 Place() {
    Matrix4x4 world;
    Find(u"~bok")->GetMatrix(world);
    return world.GetTranslation();
  }

  ICGUIPageObject* page = nullptr;
};

TEST_F(Animation, PlaysOneAtATime) {
  ICGUIAnim* in = page->PlayAnim(page->animIn, false);
  ASSERT_EQ(in, page->anims[0]);
  EXPECT_EQ(page->PlayAnim(page->animOut, false), in) << "the one that plays";
  EXPECT_FALSE(page->anims[1]->IsPlaying());
  Frame(0.5);
  EXPECT_EQ(Place().x, -90.0F) << "seen from its first pose on, however long the frame was";
  Frame(0.5);
  EXPECT_NEAR(Place().x, -45.0F, 0.01F);
  EXPECT_NEAR(in->GetProgress(), 0.5F, 0.01F);
  Frame(0.6);
  EXPECT_EQ(page->GetPlayingAnim(), nullptr);
  EXPECT_NEAR(Place().x, 0.0F, 0.01F);
  EXPECT_EQ(page->PlayAnim(page->animOut, false), page->anims[1]);
  page->StopAnims();
  EXPECT_EQ(page->GetPlayingAnim(), nullptr);
}

TEST_F(Animation, RefusesPositionsThatAreNone) {
  for (const std::int32_t position : {-1, 2, 1000}) EXPECT_EQ(page->PlayAnim(position, false), nullptr);
  EXPECT_EQ(page->PlayAnim(0, true), nullptr) << "a looping one is not waited for";
}

TEST_F(Animation, HandlesAskTheController) {
  engine.calls.clear();
  ICGUIAnim* in = page->anims[0];
  EXPECT_EQ(in->info->tooltip, 0);
  in->SetFrame(7.5F);
  Frame(0.5);
  EXPECT_NEAR(Place().x, -67.5F, 0.01F) << "put there, it does not run";
  EXPECT_FALSE(in->IsPlaying());
  in->Play(false);
  in->SetFrame(15.0F);
  Frame(0.0);
  EXPECT_NEAR(Place().x, -45.0F, 0.01F);
  in->Stop();
  EXPECT_EQ(in->playing, 0U);
  EXPECT_FALSE(in->IsPlaying());
  const std::vector<base::Call> played = engine.CallsOf("AnimCtrl::PlayAnimation");
  ASSERT_EQ(played.size(), 1U);
  ASSERT_EQ(engine.CallsOf("AnimCtrl::ClearAnimationFromStack").size(), 1U);
}

TEST_F(Animation, HandlesWithoutAnInstanceDoNothing) {
  page->Unload();
  AddText(u"none.txt", u"anim_in in.glb");
  EXPECT_EQ(page->LoadPage(u"none.txt", 0), nullptr);
  EXPECT_TRUE(page->anims.empty());
  EXPECT_EQ(page->GetPlayingAnim(), nullptr);
}

TEST_F(Animation, APageShownAgainBeginsFromItsRest) {
  AddButtonPage(u"note", {u"end"}, u"anim_out note_out.glb anim door.glb");
  engine.AddAnimation(u"note_out.glb", base::MoveNode(u"~bend", {}, {0, 90, 0}, 0.5F));
  engine.AddAnimation(u"door.glb", base::MoveNode(u"normal_end", {}, {0, 0, 30}, 0.5F));
  ICGUIPageObject* note = OpenPage(u"note.txt");
  const auto place = [note](const Char* node) { return note->FindNode(node)->transform.GetTranslation(); };
  const auto show = [this] {
    gui->AddRenderPage(1);
    gui->AddActivePage(1);
    Frame();
    Frame();
  };
  show();
  EXPECT_EQ(note->PlayAnim(1, false), note->anims[1]);
  Frame();
  Frame(1.0);
  EXPECT_EQ(place(u"normal_end"), (Vec3{0, 0, -30})) << "it holds while the page is shown";
  gui->RemActivePage(1);
  Frame();
  Frame(1.0);
  Frame();
  EXPECT_EQ(place(u"~bend"), (Vec3{0, 90, 0})) << "gone, until it is taken off the list";
  gui->RemRenderPage(1);
  Frame();
  show();
  EXPECT_EQ(place(u"~bend"), Vec3());
  EXPECT_EQ(place(u"normal_end"), Vec3());

  note->anims[1]->SetFrame(15.0F);
  gui->RemActivePage(1);
  Frame();
  Frame(0.25);
  note->Disable(false);
  Frame(0.0);
  EXPECT_EQ(place(u"~bend"), (Vec3{0, 45, 0})) << "shown again on its way out, it goes on";
  Frame(1.0);
  EXPECT_EQ(place(u"~bend"), Vec3()) << "but comes back";
  EXPECT_EQ(place(u"normal_end"), (Vec3{0, 0, -30})) << "a frame that was set stays set";
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
  for (const float down : {80.0F, 64.0F, 48.0F, 32.0F, 16.0F, 0.0F, 0.0F}) {
    Frame(0.1);
    EXPECT_NEAR(slider().x, rest.x, 1e-3F);
    EXPECT_NEAR(slider().y, rest.y - down, 1e-3F);
  }
  gui->RemActivePage(1);
  for (const float down : {80.0F, 64.0F}) {
    Frame(0.1);
    EXPECT_NEAR(slider().y, rest.y - down, 1e-3F);
  }
}

}  // namespace
}  // namespace qen::test
