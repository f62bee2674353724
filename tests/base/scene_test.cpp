#include "engine/scene.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <sstream>
#include <utility>

#include "base/recording/recording_engine.h"
#include "base/recording/scene_builder.h"
#include "engine/anim_ctrl.h"
#include "engine/light.h"
#include "engine/mesh.h"
#include "engine/render.h"
#include "engine/scene_manager.h"
#include "engine/system.h"

namespace qen::base {
namespace {

// "1 -2.5 0", to four digits behind the point.
std::string Text(const Vec3& v) {
  std::ostringstream text;
  const auto rounded = [](float value) { return std::round(value * 1e4F) / 1e4F + 0.0F; };
  text << rounded(v.x) << ' ' << rounded(v.y) << ' ' << rounded(v.z);
  return text.str();
}

void Play(AnimCtrl& control, std::int32_t index, bool reverse = false, bool loop = false, float start = 0.0F,
          float speed = 1.0F, bool restart = true) {
  control.PlayAnimation(index, reverse, 30, restart, start, speed, 3, loop, false, -1, false, false, false, false,
                        false, true);
}

class SceneTest : public testing::Test {
 protected:
  void Load() {
    engine->AddScene(u"s", data);
    ASSERT_TRUE(scene->Load(u"s", true));
  }

  void AddAnimation(const AnimationData& animation, std::uint32_t index) {
    engine->AddAnimation(u"a", animation);
    ASSERT_TRUE(scene->LoadAnimData(u"a", index));
  }

  SimpleSceneInstance* Place() {
    scenes.CreateScene(u"world", true);
    scenes.AddSimpleScene(u"page", scene.get());
    id = scenes.CreateInstance(u"world", u"page", Matrix4x4::Identity, {}, {});
    SimpleSceneInstance* placed = nullptr;
    float distance = 0.0F;
    scenes.GetInstance(id)->GetLOD(0, placed, distance);
    return placed;
  }

  std::unique_ptr<RecordingEngine> engine = std::make_unique<RecordingEngine>();
  ISceneMng& scenes = *System::sceneMng;
  SceneData data;
  std::unique_ptr<SimpleScene> scene = std::make_unique<SimpleScene>("test", 1);
  std::int32_t id = -1;
};

TEST_F(SceneTest, TurnsTheFilesSpaceIntoTheWorlds) {
  const std::int32_t root = AddNode(data, u"root", -1, {10, 20, 30});
  // Takes x to (-0.6, 0.8, 0), y to (-0.48, -0.36, 0.8) and z to (0.64, 0.48, 0.6).
  data.nodes.back().pose.rotation = {1, 2, 4, 2};
  AddBox(data, u"face", root, {0, 0, 5}, {4, 3, 1});
  data.nodes.back().pose.scale = {2, 2, 2};
  data.meshes.back().front().vertices[7].position.x = 8;
  engine->AddScene(u"Menus\\Main.glb", data);
  ASSERT_TRUE(scene->Load(u"menus/main.GLB", true));

  // In the file the node is at (13.2, 22.4, 33); in the world z is turned round. Local y is the file's z, z is up.
  const TMNode& face = *scene->FindMapNode(u"face");
  EXPECT_EQ(Text(face.transform * Vec3{}), "13.2 22.4 -33");
  EXPECT_EQ(Text(face.transform * Vec3{1, 0, 0}), "12 24 -33");
  EXPECT_EQ(Text(face.transform * Vec3{0, 1, 0}), "14.48 23.36 -34.2");
  EXPECT_EQ(Text(face.transform * Vec3{0, 0, 1}), "12.24 21.68 -34.6");
  EXPECT_EQ(Text(face.inverseTransform * (face.transform * Vec3{1, 2, 3})), "1 2 3");
  EXPECT_EQ(Text(face.mesh->GetAABB().center) + ", " + Text(face.mesh->GetAABB().halfSize), "2 0 0, 6 1 3");
}

TEST_F(SceneTest, WhatIsNotSoundInAFileIsLeftOut) {
  AddBox(data, u"twin", 7, {1, 0, 0}, {1, 1, 1});  // a parent that does not exist yet
  data.meshes.back().front().vertices[0].position.x = HUGE_VALF;
  data.meshes.back().front().material = 99;
  AddBox(data, u"twin", 0, {2, 0, 0}, {1, 1, 1});
  data.meshes.back().front().indices[0] = 8;
  AddNode(data, u"no mesh");
  data.nodes.back().mesh = 2;
  Load();
  const std::vector<TMNode*>& nodes = scene->GetNodes();
  EXPECT_EQ(scene->FindMapNode(u"twin"), nodes[0]) << "the first of that name";
  EXPECT_TRUE(nodes[0]->parent == TMNode::kNoParent && nodes[0]->cameraParameters == nullptr);
  EXPECT_EQ(Text(nodes[0]->mesh->GetAABB().halfSize), "1 1 1") << "without the vertex that is nowhere";
  EXPECT_TRUE(nodes[1]->parent == 0 && nodes[1]->mesh->GetSubMesh(0)->geometry == 0) << "its indices lead outside";
  EXPECT_EQ(nodes[2]->mesh, nullptr);

  engine->files.AddText(u"broken", u"bad");
  for (int i = 0; i < 2; ++i) EXPECT_FALSE(scene->LoadAnimData(u"none", 0) || scene->Load(u"broken", true));
  EXPECT_EQ(engine->errors,
            (std::vector<String>{u"Can't load animation none", u"Can't load scene broken: unknown format"}));
  EXPECT_TRUE(nodes.empty());
}

TEST_F(SceneTest, KeepsOnceWhatManyNodesHaveInCommon) {
  AddBox(data, u"a", AddNode(data, u"root", -1, {1, 2, 3}), {}, {1, 1, 1});
  AddPicture(data);
  AddNode(data, u"b", 0);
  data.nodes.back().mesh = 0;
  AddBox(data, u"c", 0, {0, 0, 1}, {1, 1, 1});  // of its own in the file, and the same
  data.meshes.back().front().material = 1;
  data.materials.push_back(data.materials.front());
  AddBox(data, u"d", 0, {0, 0, 1}, {1, 1, 1});
  Load();
  const auto part = [this](std::size_t node) -> SubMesh& { return *scene->GetNodes()[node]->mesh->GetSubMesh(0); };
  const auto look = [&](std::size_t node) { return &std::as_const(part(node)).GetMaterialParams(); };
  EXPECT_EQ(engine->render.geometries.size(), 1U);
  EXPECT_EQ((std::vector{look(1), look(1), look(1)}), (std::vector{look(2), look(3), look(1)}));
  EXPECT_NE(look(4), look(1)) << "it has no picture";

  part(2).GetMaterialParams().RemoveTexture(TEXTURE_SLOT_1);
  EXPECT_EQ(std::get<std::string>(engine->calls.back().arguments.at(0)), "b/0") << "its name in traces";
  EXPECT_EQ(look(2)->GetTexture(TEXTURE_SLOT_1), nullptr);
  EXPECT_NE(look(1)->GetTexture(TEXTURE_SLOT_1), nullptr) << "the others keep theirs";

  const std::vector<TMNode*>& nodes = scene->GetNodes();
  nodes[1]->transform = *nodes[3]->transform;
  EXPECT_EQ(Text(nodes[1]->transform * Vec3{}) + ", " + Text(nodes[2]->transform * Vec3{}), "1 2 -4, 1 2 -3");
  EXPECT_EQ(Place()->nodeMatrices.at(1).GetTranslation(), (Vec3{1, 2, -3})) << "back at rest";
  EXPECT_EQ(Text(nodes[1]->transform * Vec3{}), "1 2 -3");
}

TEST_F(SceneTest, LightsStandWhereTheirNodesDoAndGoWithTheirInstance) {
  AddNode(data, u"lamp", AddBox(data, u"arm", -1, {}, {1, 1, 1}), {1, 2, 3});
  data.nodes.back().pose.rotation = {-1, 0, 0, 1};  // from -z to -y
  data.nodes.back().light.emplace().type = Light::kSpot;
  data.ambient = Vec3{0.5F, 0.25F, 1};
  Load();
  AddAnimation(MoveNode(u"arm", {0, 0, 0}, {0, 30, 0}, 1.0F), 0);
  Light sun, later;
  scenes.CreateScene(u"world", true);
  scenes.AddLight(u"world", &sun, {});
  SimpleSceneInstance& placed = *Place();
  scenes.AddLight(u"world", &later, {});
  const auto drawnLights = [&]() -> const LightList* { return engine->render.frame.items.at(0).lights; };
  const auto draw = [&](bool thenEnd) {
    engine->Draw([&] {
      System::render->Submit({scene->GetNodes()[0]->mesh->GetSubMesh(0), nullptr, 1, 0.0F, placed.sceneLights});
      if (thenEnd) scenes.DestroyInstance(id);
    });
  };
  placed.transform.SetTranslation({100, 0, 0});
  Play(*placed.animCtrl, 0);
  engine->Animate(0.0);
  engine->Animate(0.5);
  draw(false);
  ASSERT_EQ(drawnLights()->size(), 4U);
  Light* lamp = (*drawnLights())[2];
  EXPECT_EQ(*drawnLights(), (LightList{&sun, &later, lamp, (*drawnLights())[3]}));
  EXPECT_EQ(Text(lamp->position) + ", " + Text(lamp->direction), "101 17 -3, 0 -1 0");
  EXPECT_EQ(Text((*drawnLights())[3]->color), "0.5 0.25 1");
  engine->Draw([&] { placed.Render(nullptr, 2, {&sun}); });
  EXPECT_EQ(*drawnLights(), (LightList{&sun, placed.ownLights[0], placed.ownLights[1]}));
  draw(true);
  EXPECT_EQ(drawnLights(), nullptr) << "nothing points to lights that are gone";
}

TEST_F(SceneTest, AnimationsMoveNodesAndTheirChildren) {
  AddBox(data, u"hand", AddNode(data, u"arm"), {1, 0, 0}, {1, 1, 1});
  Load();
  AddAnimation(MoveNode(u"arm", {0, 0, 0}, {0, 30, 0}, 1.0F), SimpleScene::kNextAnimation);
  AddAnimation(MoveNode(u"arm", {0, 7, 0}, {0, 7, 0}, 0.0F), SimpleScene::kNextAnimation);
  SimpleSceneInstance& placed = *Place();
  AnimCtrl& control = *placed.animCtrl;
  Matrix4x4& hand = placed.nodeMatrices[1];
  const auto play = [&](bool reverse = false, bool loop = false, float start = 0.0F, float speed = 1.0F) {
    Play(control, 0, reverse, loop, start, speed);
    engine->Animate(100.0);  // however late, it begins with its first pose
  };
  const auto set = [&](std::int32_t index, float frame) { control.SetNewFrame(index, frame); };
  const auto disable = [&](bool disabled) { scenes.GetInstance(id)->Disable(disabled); };
  const struct {
    const char* what;
    std::function<void()> act;
    double seconds;
    const char* seen;  // the arm's height, where the hand is, how far the animation is and whether it plays
  } kSteps[] = {
      {"a frame that is set", [&] { set(0, 15.0F); }, 0.1, "15, 1 15 0, 0.5"},
      {"off the stack", [&] { control.ClearAnimationFromStack(0), Play(control, 2), Play(control, -1), set(2, 9.0F); },
       0.1, "0, 1 0 0, -1"},
      {"a node that was put somewhere is carried along",
       [&] {
         hand.SetTranslation({2, 0, 0}), play();
       },
       0.5, "15, 2 15 0, 0.5>"},
      {"a disabled scene stands still", [&] { scenes.DisableScene(u"world", true); }, 0.25, "15, 2 15 0, 0.75>"},
      {"so does an instance", [&] { disable(true), scenes.DisableScene(u"world", false); }, 0.25, "15, 2 15 0, 1"},
      {"what ended meanwhile leaves no pose", [&] { disable(false); }, 0.0, "0, 2 0 0, -1"},
      {"what is under way goes on when shown anew", [&] { play(), engine->Animate(0.5), disable(false); }, 0.25,
       "22.5, 2 22.5 0, 0.75>"},
      {"stays on its last frame", [&] { play(), engine->Animate(1.0); }, 2.0, "30, 2 30 0, 1"},
      {"backwards from its frame 24, twice as fast", [&] { play(true, false, 6, 2); }, 0.2, "12, 2 12 0, 0.6>"},
      {"stays on its first frame", {}, 9.0, "0, 2 0 0, 1"},
      {"goes round", [&] { play(false, true); }, 2.5, "15, 2 15 0, 0.5>"},
      {"not restarted", [&] { Play(control, 0, false, true, 0, 1, false); }, 1.0, "15, 2 15 0, 0.5>"},
      {"goes round backwards", [&] { play(true, true); }, 1.25, "22.5, 2 22.5 0, 0.25>"},
      {"stopped, its pose stays", [&] { control.StopAnimation(0, 0.0F); }, 1.0, "22.5, 2 22.5 0, 0.25"},
      {"set beyond its end", [&] { set(0, 99.0F); }, 0.0, "30, 2 30 0, 0"},
      {"set to no number, shown anew", [&] { set(0, std::nanf("")), disable(false); }, 0.0, "0, 2 0 0, 1"},
      {"a later one hides it, even if it has no length", [&] { Play(control, 1, false, true); }, 2.0, "7, 2 7 0, 1"},
  };
  for (const auto& step : kSteps) {
    if (step.act) step.act();
    engine->Animate(step.seconds);
    std::ostringstream seen;
    float progress = -1.0F;
    control.GetAnimProgress(0, progress);
    seen << placed.nodeMatrices[0].m[3][1] << ", " << Text(hand.GetTranslation()) << ", " << progress;
    EXPECT_EQ(seen.str() + (control.IsPlaying(0) ? ">" : ""), step.seen) << step.what;
  }
  EXPECT_TRUE(control.IsPlaying(1));
  EXPECT_EQ(Text(scene->GetNodes()[1]->transform * Vec3{1, 0, 0}), "3 7 0");
  EXPECT_EQ(Text(scene->GetNodes()[1]->inverseTransform * Vec3{3, 7, 0}), "1 0 0");
}

TEST_F(SceneTest, InterpolatesKeys) {
  for (const Char* name : {u"step", u"cubic", u"bad", u"turn"}) AddNode(data, name);
  const float s = std::sqrt(0.5F);
  AnimationData animation{{5, NodeTracks{}}, 2.0F};
  animation.nodes[0] = {u"step", {{0.5F, 1}, {{1, 0, 0}, {2, 0, 0}}, Interpolation::Step}, {}, {}};
  animation.nodes[1].node = u"cubic";  // t^3 - 2 t at 0 and 2, with its slopes
  animation.nodes[1].translation = {{0, 2}, {{}, {}, {-2, 0, 0}, {10, 0, 0}, {4, 0, 0}, {}}, Interpolation::Cubic};
  animation.nodes[2] = {u"bad", {{0, 1, 2}, {{5, 0, 0}}}, {}, {{1, 0}, {{2, 2, 2}, {3, 3, 3}}}};
  // The shorter way of a quarter turn, while it grows.
  animation.nodes[3] = {u"turn", {}, {{0, 2}, {{}, {0, 0, -s, -s}}}, {{0, 2}, {{1, 1, 1}, {3, 3, 3}}}};
  animation.nodes[4] = {u"nobody", animation.nodes[0].translation, {}, {}};
  Load();
  const SimpleSceneInstance& placed = *Place();
  AddAnimation(animation, 3);  // also known to instances that are there already
  Play(*placed.animCtrl, 3);
  engine->Animate(0.0);
  for (const float t : {0.25F, 0.5F, 0.75F, 1.0F, 1.25F, 1.5F, 1.75F, 2.0F}) {
    engine->Animate(0.25);
    EXPECT_EQ(placed.nodeMatrices[0].GetTranslation().x, t < 1 ? 1 : 2);
    EXPECT_NEAR(placed.nodeMatrices[1].GetTranslation().x, t * t * t - 2 * t, 1e-5F);
    EXPECT_EQ(Text(placed.nodeMatrices[2] * Vec3{1, 0, 0}), "1 0 0") << "tracks that are not sound do nothing";
    const float angle = t * std::acos(0.0F) / 2;
    EXPECT_EQ(Text(placed.nodeMatrices[3] * Vec3{1, 0, 0}), Text(Vec3{std::cos(angle), std::sin(angle), 0} * (1 + t)));
  }
}

TEST_F(SceneTest, NamesAndIds) {
  Load();
  Place();
  EXPECT_FALSE(scenes.CreateScene(u"world", true));
  EXPECT_FALSE(scenes.AddSimpleScene(u"none", nullptr) || scenes.AddSimpleScene(u"page", scene.get()));
  EXPECT_FALSE(scenes.AddLight(u"nowhere", nullptr, {}) || scenes.AddLight(u"world", nullptr, {}));
  const std::int32_t first = id;
  for (const std::int32_t gone : {first, first, -1}) scenes.DestroyInstance(gone);
  EXPECT_EQ(scenes.GetInstance(first), nullptr);
  Place();
  EXPECT_NE(first, id);
  scenes.RemoveSimpleScene(u"page");
  EXPECT_NE(scenes.GetInstance(id), nullptr) << "instances do not need the registration";
  for (const Char* world : {u"world", u"nowhere"}) {
    EXPECT_LT(scenes.CreateInstance(world, u"page", Matrix4x4::Identity, {}, {}), 0);
  }
  scenes.DestroyScene(u"world");
  EXPECT_EQ(scenes.GetInstance(id), nullptr);
}

TEST_F(SceneTest, AnythingMayGoFirst) {
  AddBox(data, u"a", -1, {1, 0, 2}, {1, 1, 1});
  AddPicture(data);
  for (int i = 0; i < 2; ++i) Load();
  SubMesh* subMesh = scene->GetNodes()[0]->mesh->GetSubMesh(0);
  SimpleSceneInstance* placed = Place();
  const auto draw = [&] {
    System::render->Submit({.subMesh = subMesh, .world = &placed->nodeMatrices.at(0), .count = 1});
    EXPECT_EQ(std::get<std::string>(engine->calls.back().arguments.at(0)), "a/0") << "its name in traces";
    System::render->Submit({});
    placed->Render(&engine->viewport, 2, {});
  };
  engine->Draw([&] {
    draw();
    scenes.DestroyScene(u"world");
  });
  const std::vector<DrawItem>& items = engine->render.frame.items;
  ASSERT_EQ(items.size(), 2U);

  placed = Place();
  engine->Draw([&] {
    draw();
    scene.reset();
    engine->Animate(0.5);
    placed->Render(&engine->viewport, 2, {});
  });
  ASSERT_EQ(items.size(), 2U);
  for (const DrawItem& item : items) EXPECT_EQ(item.kind, DrawKind::Triangles3D) << "its mesh is gone";
  EXPECT_TRUE(placed->nodeMatrices.empty() && engine->render.geometries.empty() && engine->render.textures.empty());
  EXPECT_LT(scenes.CreateInstance(u"world", u"page", Matrix4x4::Identity, {}, {}), 0) << "its name went too";

  scene = std::make_unique<SimpleScene>("test", 1);
  Load();
  Place();
  engine.reset();
  EXPECT_FALSE(scene->Load(u"s", true));
  EXPECT_TRUE(scene->GetNodes().empty());
}

}  // namespace
}  // namespace qen::base
