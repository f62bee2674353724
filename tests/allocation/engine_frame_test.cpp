// What the engine does every frame allocates nothing once it has happened.
#include <gtest/gtest.h>

#include "base/recording/recording_engine.h"
#include "base/recording/scene_builder.h"
#include "engine/anim_ctrl.h"
#include "engine/drawing.h"
#include "engine/font.h"
#include "engine/ime.h"
#include "engine/light.h"
#include "engine/msg_daemon.h"
#include "engine/platform.h"
#include "engine/render.h"
#include "engine/scene.h"
#include "engine/scene_manager.h"
#include "engine/sound.h"
#include "engine/system.h"
#include "tests/allocation/counting_new.h"

namespace qen::base {
namespace {

TEST(Allocations, AWarmFrameMakesNone) {
  RecordingEngine engine;
  engine.RecordCalls(false);
  SceneData data;
  for (const Char* name : {u"a", u"b", u"c"}) AddBox(data, name, -1, {}, {1, 1, 1});
  engine.AddScene(u"s", data);
  engine.AddAnimation(u"m", MoveNode(u"b", {}, {10, 0, 0}, 1.0F));
  engine.AddSound(u"click");
  SimpleScene scene("test", 1);
  ASSERT_TRUE(scene.Load(u"s", true));
  ASSERT_TRUE(scene.LoadAnimData(u"m", 0));
  const std::size_t atFirst = test::AllocationCount();
  System::sceneMng->CreateScene(u"w", true);
  EXPECT_GT(test::AllocationCount(), atFirst) << "the library's allocations are counted";
  System::sceneMng->AddSimpleScene(u"s", &scene);
  const std::int32_t id = System::sceneMng->CreateInstance(u"w", u"s", Matrix4x4::Identity, {}, {});
  SimpleSceneInstance* placed = nullptr;
  float distance = 0.0F;
  System::sceneMng->GetInstance(id)->GetLOD(0, placed, distance);
  placed->animCtrl->PlayAnimation(0, false, 30, true, 0, 1, 3, true, false, -1, false, false, false, false, false,
                                  true);
  const SoundHandle click = System::sound->CreateSound(u"click", {}, 2);
  Font* font = FontManager::GetSingleton()->CreateEx(u"Test", -20, 0, 400, false, 1, kDefaultGroup);
  struct Quiet final : Object {
    std::int32_t OnMessage(const Msg&) override { return 1; }
  } handler;
  System::daemon->AddHandler(&handler, 1);
  engine.sound.played.reserve(100);
  Light light;
  const LightList lights{&light};

  const auto frame = [&] {
    engine.Animate(1.0 / 60.0);
    engine.engine.BeginFrame();
    System::daemon->ProcMsg(1, 2, 3, 1);
    System::render->SetProjection(engine.camera.GetProjection());
    System::render->SetView(engine.camera.GetView());
    placed->Render(&engine.viewport, 2, lights);
    Drawing drawing;
    drawing.SetFont(font);
    drawing.BeginText3D(0.14F);
    drawing.DrawText3D(placed->nodeMatrices[1], Rect{0, 0, 20, 20}, DT_WORDBREAK, Color(1), u"some words of a page");
    drawing.GetTextRect({0, 0, 20, 0}, DT_WORDBREAK, u"%s", u"some words of a page");
    drawing.BeginText2D();
    drawing.DrawText2D(1, 2, Color(1), u"%s: %d", u"points", 12);
    drawing.DrawAABB({{}, {1, 1, 1}}, Color(1));
    System::sound->Play(click);
    System::ime->Enable(true);
    System::timer->GetTime();
    platform::POINT cursor;
    platform::GetCursorPos(&cursor);
    engine.engine.EndFrame(engine.viewport);
  };
  for (int i = 0; i < 3; ++i) frame();
  const std::size_t before = test::AllocationCount();
  for (int i = 0; i < 10; ++i) frame();
  EXPECT_EQ(test::AllocationCount(), before);
}

}  // namespace
}  // namespace qen::base
