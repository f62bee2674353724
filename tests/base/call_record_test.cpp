#include "base/call_record.h"

#include <gtest/gtest.h>

#include "base/recording/recording_engine.h"
#include "base/recording/scene_builder.h"
#include "engine/anim_ctrl.h"
#include "engine/drawing.h"
#include "engine/font.h"
#include "engine/gui_message.h"
#include "engine/mesh.h"
#include "engine/messages.h"
#include "engine/msg_daemon.h"
#include "engine/output.h"
#include "engine/render.h"
#include "engine/scene.h"
#include "engine/scene_manager.h"
#include "engine/system.h"

namespace qen::base {
namespace {

using Arguments = std::vector<CallArgument>;

std::vector<std::string> NamesOf(const std::vector<Call>& calls) {
  std::vector<std::string> names;
  names.reserve(calls.size());
  for (const Call& call : calls) names.push_back(call.name);
  return names;
}

TEST(CallRecord, HasNamesAndArgumentsInOrder) {
  RecordingEngine engine;
  engine.calls.clear();
  System::sceneMng->CreateScene(u"m\u00E4in", true);
  System::output->Print(u"%d%s\n", 5, u"!");
  System::timer->GetTime();
  ASSERT_EQ(NamesOf(engine.calls),
            (std::vector<std::string>{"ISceneMng::CreateScene", "IOutput::Print", "ITimer::GetTime"}));
  EXPECT_EQ(engine.calls[0].arguments, (Arguments{std::string("m\xC3\xA4in"), true}));
  EXPECT_EQ(engine.calls[1].arguments, Arguments{std::string("5!\n")});
  EXPECT_EQ(engine.CallsOf("IOutput::Print").size(), 1U);

  GuiMessage message;
  message.text = u"setpage:main";
  engine.calls.clear();
  System::daemon->ProcMsg(message::kCommand, 0, reinterpret_cast<std::uintptr_t>(&message), category::kAll);
  System::daemon->ProcMsg(message::kRender, 0, reinterpret_cast<std::uintptr_t>(&engine.viewport), category::kAll);
  EXPECT_EQ(engine.calls[0].arguments[2], CallArgument(std::string("setpage:main")));
  EXPECT_EQ(engine.calls[1].arguments[2], CallArgument(std::string())) << "never an address";

  engine.RecordCalls(false);
  System::timer->GetTime();
  EXPECT_EQ(engine.calls.size(), 2U);
}

TEST(CallRecord, ObjectsGoByTheirNames) {
  RecordingEngine engine;
  SceneData data;
  AddBox(data, u"~bStart", -1, {}, {1, 1, 1});
  AddPicture(data);
  engine.AddScene(u"main.glb", data);
  engine.AddAnimation(u"in.glb", MoveNode(u"~bStart", {}, {1, 0, 0}, 1.0F));
  engine.calls.clear();
  SimpleScene scene("Page", 371);
  scene.Load(u"main.glb", true);
  EXPECT_EQ(NamesOf(engine.calls), (std::vector<std::string>{"SimpleScene::SimpleScene", "SimpleScene::Load"}))
      << "what the engine does by itself is not told";
  scene.LoadAnimData(u"in.glb", SimpleScene::kNextAnimation);
  System::sceneMng->CreateScene(u"s", true);
  System::sceneMng->AddSimpleScene(u"main_gui", &scene);
  const std::int32_t id = System::sceneMng->CreateInstance(u"s", u"main_gui", Matrix4x4::Identity, {}, {});
  SimpleSceneInstance* placed = nullptr;
  float distance = 0.0F;
  System::sceneMng->GetInstance(id)->GetLOD(0, placed, distance);
  placed->animCtrl->StopAnimation(0, 0.0F);
  EXPECT_EQ(engine.calls.back().arguments, (Arguments{std::string("main_gui"), std::int64_t{0}, 0.0}));
  System::render->Submit({scene.GetNodes()[0]->mesh->GetSubMesh(0), nullptr, 1, 2.0F, nullptr});
  EXPECT_EQ(engine.calls.back().arguments, (Arguments{std::string("~bStart/0"), 2.0}));

  Drawing drawing;
  drawing.SetFont(FontManager::GetSingleton()->CreateEx(u"Courier", -21, 0, 700, true, 1, kDefaultGroup));
  EXPECT_EQ(engine.calls.back().arguments, Arguments{std::string("Courier -21 0 700 italic")});
  Matrix4x4 matrix = Matrix4x4::Identity;
  matrix.SetTranslation({1, 2.5F, 3});
  drawing.DrawText3D(matrix, Rect{0, 1, 2, 3}, DT_CENTER, Color(0xFF000001), u"hi");
  EXPECT_EQ(engine.calls.back().arguments,
            (Arguments{std::string("1 0 0 0 0 1 0 0 0 0 1 0 1 2.5 3 1"), std::string("0 1 2 3"), std::int64_t{1},
                       std::int64_t{0xFF000001}, std::string("hi")}));
}

}  // namespace
}  // namespace qen::base
