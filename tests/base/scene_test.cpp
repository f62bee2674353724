#include "engine/scene.h"

#include <gtest/gtest.h>

#include <limits>
#include <numbers>

#include "base/recording/recording_engine.h"
#include "base/recording/scene_builder.h"
#include "engine/anim_ctrl.h"
#include "engine/light.h"
#include "engine/mesh.h"
#include "engine/render.h"
#include "engine/scene_manager.h"
#include "engine/system.h"
#include "engine/texture.h"

namespace qen::base {
namespace {

void ExpectNear(const Vec3& got, const Vec3& wanted) {
  EXPECT_NEAR(got.x, wanted.x, 1e-4F);
  EXPECT_NEAR(got.y, wanted.y, 1e-4F);
  EXPECT_NEAR(got.z, wanted.z, 1e-4F);
}

// Half a turn's half about an axis.
Quaternion QuarterTurn(const Vec3& axis) {
  const float s = std::numbers::sqrt2_v<float> / 2.0F;
  return {axis.x * s, axis.y * s, axis.z * s, s};
}

void Play(AnimCtrl& control, std::int32_t index, bool reverse = false, bool loop = false, float start = 0.0F,
          float speed = 1.0F, bool restart = true) {
  control.PlayAnimation(index, reverse, 30, restart, start, speed, 3, loop, false, -1, false, false, false, false,
                        false, true);
  control.Advance(1.0);  // begins with the first pose, however long ago it was started
}

class SceneTest : public testing::Test {
 protected:
  void Load() {
    engine.AddScene(u"s", data);
    ASSERT_TRUE(scene->Load(u"s", true));
  }

  SimpleSceneInstance* Place(const InstanceDesc& desc = {}) {
    System::sceneMng->CreateScene(u"world", true);
    System::sceneMng->AddSimpleScene(u"page", scene.get());
    id = System::sceneMng->CreateInstance(u"world", u"page", Matrix4x4::Identity, desc, {});
    return At(id);
  }

  static SimpleSceneInstance* At(std::int32_t instance) {
    SimpleSceneInstance* placed = nullptr;
    float distance = 0.0F;
    if (InstanceObject* object = System::sceneMng->GetInstance(instance)) object->GetLOD(0, placed, distance);
    return placed;
  }

  RecordingEngine engine;
  SceneData data;
  std::unique_ptr<SimpleScene> scene = std::make_unique<SimpleScene>("test", 1);
  std::int32_t id = -1;
};

TEST_F(SceneTest, ConvertsSpaces) {
  const std::int32_t root = AddNode(data, u"root", -1, {10, 20, 30});
  data.nodes.back().pose.rotation = QuarterTurn({0, 1, 0});  // glTF's z turns to x
  AddBox(data, u"face", root, {0, 0, 5}, {4, 3, 1});
  data.nodes.back().pose.scale = {2, 2, 2};
  engine.AddScene(u"Menus\\Main.glb", data);
  ASSERT_TRUE(scene->Load(u"menus/main.GLB", true));
  ASSERT_EQ(scene->GetNumNodesInRefFile(), 2U);

  const TMNode& face = *scene->GetNodes()[1];
  EXPECT_EQ(face.parent, 0U);
  EXPECT_EQ(scene->FindMapNode(u"face"), &face);
  EXPECT_EQ(scene->FindMapNode(u"Face"), nullptr);
  // The node's origin is at (10 + 5, 20, 30) in the file, behind which z is turned round.
  ExpectNear(face.transform.GetTranslation(), {15, 20, -30});
  // Local x is the file's x before the turn, which leads to the file's -z, the world's z; twice as long by the scale.
  ExpectNear(face.transform * Vec3{1, 0, 0}, {15, 20, -28});
  ExpectNear(face.transform * Vec3{0, 0, 1}, {15, 22, -30});  // local z is up
  ExpectNear(face.transform * Vec3{0, 1, 0}, {17, 20, -30});  // local y is the file's z
  ExpectNear(face.inverseTransform * (face.transform * Vec3{1, 2, 3}), {1, 2, 3});

  EXPECT_EQ(face.mesh->GetAABB().center, Vec3());
  EXPECT_EQ(face.mesh->GetAABB().halfSize, (Vec3{4, 1, 3}));
  const auto& geometry = engine.render.geometries.at(face.mesh->GetSubMesh(0)->geometry);
  EXPECT_EQ(geometry.vertices.back().position, (Vec3{4, 1, 3}));
  EXPECT_EQ(geometry.vertices[1].position, (Vec3{4, -1, -3}));
}

TEST_F(SceneTest, CamerasAndBrokenData) {
  AddCamera(data, u"Camera01", 0.8F, 2.0F, 500.0F);
  AddBox(data, u"twin", 7, {1, 0, 0}, {1, 1, 1});  // a parent that does not exist yet
  constexpr float kInfinity = std::numeric_limits<float>::infinity();
  data.meshes.back().front().vertices[0].position = {kInfinity, 0, 0};
  data.meshes.back().front().material = 99;
  AddBox(data, u"twin", 0, {2, 0, 0}, {1, 1, 1});
  data.meshes.back().front().indices[0] = 99;
  AddNode(data, u"no mesh");
  data.nodes.back().mesh = 50;
  Load();

  const float* camera = scene->FindMapNode(u"Camera01")->cameraParameters;
  ASSERT_NE(camera, nullptr);
  EXPECT_FLOAT_EQ(camera[1], 1.04F);
  EXPECT_EQ(camera[2], 2.0F);
  EXPECT_EQ(camera[3], 500.0F);
  const TMNode* twin = scene->FindMapNode(u"twin");
  EXPECT_EQ(twin, scene->GetNodes()[1]) << "the first of that name";
  EXPECT_EQ(twin->parent, TMNode::kNoParent);
  EXPECT_EQ(twin->cameraParameters, nullptr);
  EXPECT_EQ(twin->mesh->box.halfSize, (Vec3{1, 1, 1})) << "without the vertex that is nowhere";
  EXPECT_EQ(scene->GetNodes()[2]->mesh->GetSubMesh(0)->geometry, 0U) << "its indices lead outside";
  EXPECT_EQ(scene->GetNodes()[3]->mesh, nullptr);
}

TEST_F(SceneTest, RendererObjectsLiveAsLongAsTheScene) {
  AddBox(data, u"a", -1, {}, {1, 1, 1});
  AddPicture(data);
  AddNode(data, u"b");
  data.nodes.back().mesh = 0;
  engine.AddScene(u"s", data);
  for (int i = 0; i < 2; ++i) {
    ASSERT_TRUE(scene->Load(u"s", true));
    EXPECT_EQ(engine.render.geometries.size(), 1U) << "shared by the nodes";
    EXPECT_EQ(engine.render.textures.size(), 1U);
  }
  MaterialParams& a = scene->GetNodes()[0]->mesh->GetSubMesh(0)->GetMaterialParams();
  MaterialParams& b = scene->GetNodes()[1]->mesh->GetSubMesh(0)->GetMaterialParams();
  EXPECT_EQ(a.GetTexture(TEXTURE_SLOT_1), b.GetTexture(TEXTURE_SLOT_1));
  a.RemoveTexture(TEXTURE_SLOT_1);
  EXPECT_NE(b.GetTexture(TEXTURE_SLOT_1), nullptr) << "each node has its own materials";

  SimpleSceneInstance* placed = Place();
  engine.Draw([&] {
    placed->Render(&engine.viewport, 2, {});
    System::render->Submit({});
    scene.reset();
  });
  ASSERT_EQ(engine.render.frame.items.size(), 2U);
  for (const DrawItem& item : engine.render.frame.items) EXPECT_NE(item.kind, DrawKind::Mesh) << "gone before drawn";
  EXPECT_TRUE(engine.render.geometries.empty());
  EXPECT_TRUE(engine.render.textures.empty());
}

TEST_F(SceneTest, FilesThatCannotBeLoadedAreNamedOnce) {
  engine.files.AddText(u"broken.glb", u"bad");
  for (int i = 0; i < 3; ++i) {
    EXPECT_FALSE(scene->Load(u"missing.glb", true));
    EXPECT_FALSE(scene->Load(u"broken.glb", true));
    EXPECT_FALSE(scene->LoadAnimData(u"walk.glb", SimpleScene::kNextAnimation));
  }
  EXPECT_EQ(engine.errors,
            (std::vector<String>{u"Can't load scene missing.glb", u"Can't load scene broken.glb: unknown format",
                                 u"Can't load animation walk.glb"}));
  EXPECT_TRUE(scene->GetNodes().empty());
}

TEST_F(SceneTest, AnimationsMoveNodesAndTheirChildren) {
  const std::int32_t arm = AddNode(data, u"arm");
  AddBox(data, u"hand", arm, {1, 0, 0}, {1, 1, 1});
  AddBox(data, u"fixed", -1, {9, 0, 0}, {1, 1, 1});
  engine.AddAnimation(u"up", MoveNode(u"arm", {0, 0, 0}, {0, 30, 0}, 1.0F));
  Load();
  ASSERT_TRUE(scene->LoadAnimData(u"up", SimpleScene::kNextAnimation));
  SimpleSceneInstance* placed = Place();
  ASSERT_NE(placed, nullptr);
  ASSERT_EQ(placed->nodeMatrices.size(), 3U);
  EXPECT_EQ(placed->entries.size(), 2U);
  EXPECT_EQ(placed->drawMatrices.size(), 2U);

  // Somebody moves two nodes; the animation carries the one along that it moves.
  placed->nodeMatrices[1].SetTranslation({5, 5, 5});
  placed->nodeMatrices[2].SetTranslation({6, 6, 6});
  engine.Animate(1.0);
  EXPECT_EQ(placed->nodeMatrices[1].GetTranslation(), (Vec3{5, 5, 5})) << "nothing plays";
  Play(*placed->animCtrl, 0);
  engine.Animate(0.5);
  EXPECT_EQ(placed->nodeMatrices[1].GetTranslation(), (Vec3{5, 20, 5}));
  EXPECT_EQ(placed->nodeMatrices[2].GetTranslation(), (Vec3{6, 6, 6}));
  EXPECT_EQ(scene->GetNodes()[1]->transform.GetTranslation(), (Vec3{5, 20, 5}));
  ExpectNear(scene->GetNodes()[1]->inverseTransform * Vec3{5, 20, 5}, {});
  placed->nodeMatrices[1].SetTranslation({1, 0, 0});
  engine.Animate(0.0);
  EXPECT_EQ(placed->nodeMatrices[1].GetTranslation(), (Vec3{1, 15, 0})) << "put back where it rests";

  System::sceneMng->DisableScene(u"world", true);
  engine.Animate(0.25);
  System::sceneMng->GetInstance(id)->Disable(true);
  System::sceneMng->DisableScene(u"world", false);
  engine.Animate(0.25);
  EXPECT_EQ(placed->nodeMatrices[1].GetTranslation(), (Vec3{1, 15, 0})) << "disabled ones stand still";
  EXPECT_FALSE(placed->animCtrl->IsPlaying(0)) << "but whoever waits for their end does not wait for ever";
  System::sceneMng->GetInstance(id)->Disable(false);
  engine.Animate(0.0);
  EXPECT_EQ(placed->nodeMatrices[1].GetTranslation(), (Vec3{1, 0, 0})) << "and shown again, it begins from rest";

  Play(*placed->animCtrl, 0);
  engine.Animate(2.0);
  engine.Animate(0.0);
  EXPECT_EQ(placed->nodeMatrices[1].GetTranslation(), (Vec3{1, 30, 0})) << "stays on its last frame";
  placed->animCtrl->ClearAnimationFromStack(0);
  engine.Animate(0.0);
  EXPECT_EQ(placed->nodeMatrices[1].GetTranslation(), (Vec3{1, 0, 0})) << "back at rest";
}

TEST_F(SceneTest, AScenesFirstStateIsAsAsked) {
  AddNode(data, u"a");
  engine.AddAnimation(u"m", MoveNode(u"a", {}, {1, 0, 0}, 1.0F));
  Load();
  ASSERT_TRUE(scene->LoadAnimData(u"m", 0));
  System::sceneMng->CreateScene(u"world", false);
  InstanceDesc still;
  still.animates = false;
  EXPECT_EQ(Place(still)->animCtrl, nullptr);
  SimpleSceneInstance* placed = Place();
  Play(*placed->animCtrl, 0);
  engine.Animate(1.0);
  EXPECT_EQ(placed->nodeMatrices[0].GetTranslation(), Vec3());
  System::sceneMng->DisableScene(u"world", false);
  engine.Animate(1.0);
  EXPECT_EQ(placed->nodeMatrices[0].GetTranslation(), (Vec3{1, 0, 0}));
}

TEST_F(SceneTest, Interpolations) {
  for (const Char* name : {u"step", u"cubic", u"turn", u"bad"}) AddNode(data, name);
  AnimationData animation;
  animation.seconds = 2.0F;
  NodeTracks step{u"step", {{0, 1}, {{1, 0, 0}, {2, 0, 0}}, Interpolation::Step}, {}, {}};
  // Flat at both ends: at a quarter of the way the cubic is at 3/16 - 2/64 = 0.15625.
  NodeTracks cubic{u"cubic", {{0, 2}, {{}, {0, 0, 0}, {}, {}, {8, 0, 0}, {}}, Interpolation::Cubic}, {}, {}};
  NodeTracks turn;
  turn.node = u"turn";
  const Quaternion quarter = QuarterTurn({0, 0, 1});
  turn.rotation = {{0, 2}, {{}, {-quarter.x, -quarter.y, -quarter.z, -quarter.w}}, Interpolation::Linear};
  NodeTracks bad{u"bad", {{0, 1, 2}, {{5, 0, 0}}, Interpolation::Linear}, {}, {{1, 0}, {{2, 2, 2}, {3, 3, 3}}}};
  animation.nodes = {step, cubic, turn, bad, {u"nobody", step.translation, {}, {}}};
  engine.AddAnimation(u"a", animation);
  Load();
  ASSERT_TRUE(scene->LoadAnimData(u"a", 3));
  SimpleSceneInstance* placed = Place();
  Play(*placed->animCtrl, 3);
  engine.Animate(0.5);
  EXPECT_EQ(placed->nodeMatrices[0].GetTranslation().x, 1.0F);
  EXPECT_NEAR(placed->nodeMatrices[1].GetTranslation().x, 1.25F, 1e-5F);
  EXPECT_EQ(placed->nodeMatrices[3].GetTranslation(), Vec3()) << "tracks that are not sound do nothing";
  engine.Animate(0.5);
  EXPECT_EQ(placed->nodeMatrices[0].GetTranslation().x, 2.0F);
  // Half of a quarter turn, along the shorter arc: local x points up as much as to the right.
  const float s = std::numbers::sqrt2_v<float> / 2.0F;
  ExpectNear(placed->nodeMatrices[2] * Vec3{1, 0, 0}, {s, s, 0});
}

TEST_F(SceneTest, NamesAndIds) {
  ISceneMng& scenes = *System::sceneMng;
  EXPECT_TRUE(scenes.CreateScene(u"a", true));
  EXPECT_FALSE(scenes.CreateScene(u"a", true));
  EXPECT_TRUE(scenes.CreateScene(u"A", true)) << "names are exact";
  SimpleScene empty("test", 1);
  EXPECT_FALSE(scenes.AddSimpleScene(u"s", nullptr));
  EXPECT_TRUE(scenes.AddSimpleScene(u"s", &empty));
  EXPECT_FALSE(scenes.AddSimpleScene(u"s", &empty));
  EXPECT_LT(scenes.CreateInstance(u"nowhere", u"s", Matrix4x4::Identity, {}, {}), 0);
  EXPECT_LT(scenes.CreateInstance(u"a", u"nothing", Matrix4x4::Identity, {}, {}), 0);
  EXPECT_FALSE(scenes.AddLight(u"nowhere", nullptr, {}));

  const std::int32_t first = scenes.CreateInstance(u"a", u"s", Matrix4x4::Identity, {}, {});
  EXPECT_GE(first, 0);
  scenes.DestroyInstance(first);
  scenes.DestroyInstance(first);
  scenes.DestroyInstance(-1);
  EXPECT_EQ(scenes.GetInstance(first), nullptr);
  const std::int32_t second = scenes.CreateInstance(u"a", u"s", Matrix4x4::Identity, {}, {});
  EXPECT_NE(first, second);
  scenes.RemoveSimpleScene(u"s");
  EXPECT_NE(At(second), nullptr) << "instances do not need the registration";
  EXPECT_LT(scenes.CreateInstance(u"a", u"s", Matrix4x4::Identity, {}, {}), 0);
  SimpleSceneInstance* none = At(second);
  float distance = 0.0F;
  scenes.GetInstance(second)->GetLOD(1, none, distance);
  EXPECT_EQ(none, nullptr);
  scenes.DestroyScene(u"a");
  EXPECT_EQ(scenes.GetInstance(second), nullptr);
}

TEST_F(SceneTest, AnythingMayGoFirst) {
  AddBox(data, u"a", -1, {}, {1, 1, 1});
  engine.AddAnimation(u"m", MoveNode(u"a", {}, {1, 0, 0}, 1.0F));
  Load();
  SimpleSceneInstance* placed = Place();
  ASSERT_TRUE(scene->LoadAnimData(u"m", SimpleScene::kNextAnimation)) << "known to instances that are there already";
  Play(*placed->animCtrl, 0, false, true);
  Light light;
  System::sceneMng->AddLight(u"world", &light, {});
  EXPECT_EQ(placed->entries.at(0).lights->size(), 1U);
  engine.engine.BeginFrame();
  RenderEntry entry = placed->entries[0];
  entry.subMesh = scene->GetNodes()[0]->mesh->GetSubMesh(0);
  entry.world = placed->nodeMatrices.data();
  System::render->Submit(entry);
  placed->Render(&engine.viewport, 2, {&light});

  scene.reset();
  engine.Animate(0.5);
  placed->Render(&engine.viewport, 2, {});
  EXPECT_TRUE(placed->nodeMatrices.empty());
  EXPECT_LT(System::sceneMng->CreateInstance(u"world", u"page", Matrix4x4::Identity, {}, {}), 0) << "its name went too";
  System::sceneMng->DestroyScene(u"world");
  engine.engine.EndFrame(engine.viewport);
  EXPECT_EQ(engine.render.frame.items.at(0).kind, DrawKind::Triangles3D) << "its mesh is gone";
}

TEST_F(SceneTest, ADestroyedSceneLetsItsLightsGo) {
  AddBox(data, u"a", -1, {}, {1, 1, 1});
  Load();
  SimpleSceneInstance* placed = Place();
  Light ours, others;
  System::sceneMng->AddLight(u"world", &ours, {});
  engine.Draw([&] {
    placed->Render(&engine.viewport, 2, {&ours, &others});
    RenderEntry entry = placed->entries[0];
    entry.subMesh = scene->GetNodes()[0]->mesh->GetSubMesh(0);
    System::render->Submit(entry);
    System::sceneMng->DestroyScene(u"world");
  });
  EXPECT_EQ(engine.render.frame.items.at(1).entry.lights, nullptr);
  const DrawItem& drawn = engine.engine.GetDrawList().items.at(1);
  EXPECT_EQ(drawn.entry.world, &drawn.world) << "the instance's own matrices are gone";
  EXPECT_EQ(*engine.render.frame.items.at(0).entry.lights, LightList{&others});
}

TEST(Scene, MayOutliveTheEngine) {
  auto engine = std::make_unique<RecordingEngine>();
  SceneData data;
  AddBox(data, u"a", -1, {}, {1, 1, 1});
  AddPicture(data);
  engine->AddScene(u"s", data);
  SimpleScene scene("test", 1);
  ASSERT_TRUE(scene.Load(u"s", true));
  System::sceneMng->CreateScene(u"w", true);
  System::sceneMng->AddSimpleScene(u"s", &scene);
  System::sceneMng->CreateInstance(u"w", u"s", Matrix4x4::Identity, {}, {});
  engine.reset();
  EXPECT_FALSE(scene.Load(u"s", true));
  EXPECT_TRUE(scene.GetNodes().empty());
}

TEST(AnimCtrl, PlaysStopsAndLoops) {
  AnimCtrl control({30.0F, 0.0F, 60.0F});
  const auto progress = [&control](std::int32_t index) {
    float value = -1.0F;
    control.GetAnimProgress(index, value);
    return value;
  };

  for (const std::int32_t unknown : {-1, 3, 1000}) {
    Play(control, unknown, false, false);
    control.SetNewFrame(unknown, 1.0F);
    control.StopAnimation(unknown, 0.0F);
    EXPECT_FALSE(control.IsPlaying(unknown));
    EXPECT_EQ(progress(unknown), -1.0F);
  }
  EXPECT_TRUE(control.animations.empty());
  EXPECT_FALSE(control.Advance(1.0));

  Play(control, 0, false, false);
  EXPECT_TRUE(control.IsPlaying(0));
  EXPECT_EQ(progress(0), 0.0F);
  EXPECT_TRUE(control.Advance(0.5));
  EXPECT_FLOAT_EQ(progress(0), 0.5F);
  EXPECT_TRUE(control.Advance(100.0));
  EXPECT_FLOAT_EQ(progress(0), 1.0F);
  EXPECT_FALSE(control.IsPlaying(0));
  EXPECT_FALSE(control.Advance(1.0)) << "finished";

  Play(control, 0, true, false, 6.0F, 2.0F);
  EXPECT_FLOAT_EQ(progress(0), 0.2F) << "reversed, it starts that far from its end";
  control.Advance(0.2);
  EXPECT_FLOAT_EQ(progress(0), 0.6F) << "twice as fast";

  Play(control, 2, false, true);
  control.Advance(5.0);
  EXPECT_TRUE(control.IsPlaying(2));
  EXPECT_FLOAT_EQ(progress(2), 0.5F);
  Play(control, 2, false, true, 0.0F, 1.0F, false);
  EXPECT_FLOAT_EQ(progress(2), 0.5F) << "not restarted";
  Play(control, 2, true, true);
  control.Advance(2.5);
  EXPECT_FLOAT_EQ(progress(2), 0.25F) << "backwards through the end";
  control.StopAnimation(2, 0.0F);
  EXPECT_FALSE(control.IsPlaying(2));
  EXPECT_FLOAT_EQ(progress(2), 0.25F) << "its pose stays";

  Play(control, 1, false, true);
  EXPECT_TRUE(control.Advance(1.0)) << "without length";
  EXPECT_TRUE(control.IsPlaying(1));
  control.SetNewFrame(2, 1000.0F);
  EXPECT_EQ(progress(2), 0.0F) << "its last frame, where going backwards begins";
  control.SetNewFrame(2, std::numeric_limits<float>::quiet_NaN());
  EXPECT_EQ(progress(2), 1.0F);
  EXPECT_TRUE(control.Advance(0.0));
  control.ClearAnimationFromStack(2);
  EXPECT_EQ(progress(2), -1.0F);
}

}  // namespace
}  // namespace qen::base
