// A whole host of the GUI module. The recording engine stands in for a real one: files, scenes and window are in
// memory. It shows a page of one button, clicks it, and prints the command that the button posts.
#include <cstdio>

#include "base/recording/recording_engine.h"
#include "base/recording/scene_builder.h"
#include "base/utf.h"
#include "engine/gui.h"
#include "engine/gui_message.h"
#include "engine/gui_module.h"
#include "engine/messages.h"
#include "engine/msg_daemon.h"
#include "engine/object.h"
#include "engine/platform.h"
#include "engine/system.h"
#include "system.h"

namespace {

using qen::System;
using qen::base::RecordingEngine;

// The game's side: carries out the commands that the GUI leaves to it.
class Game final : public qen::Object {
 public:
  static constexpr std::uint32_t kCategory = 0x80000000;  // its own; command records go to every category

  std::int32_t OnMessage(const qen::Msg& message) override {
    if (message.id != qen::message::kCommand) return 0;
    auto& record = *reinterpret_cast<qen::GuiMessage*>(message.second);
    if (record.command != u"play") return 0;
    command = record.text;
    record.handled = 1;  // or it would be offered again
    return 0;
  }
  qen::String command;
};

// A button is a node "~b<name>" with a child for each of its looks; the page's file says what it posts.
void AddPageFiles(RecordingEngine& engine) {
  qen::base::SceneData scene;
  const std::int32_t button = qen::base::AddNode(scene, u"~bplay");
  for (const auto* look : {u"normal", u"onmouse", u"disabled"})
    qen::base::AddBox(scene, look, button, {}, {10.0F, 5.0F, 1.0F});
  engine.AddScene(u"menu.glb", scene);
  engine.files.AddText(u"menu.txt", u"name menu.glb item ~bplay { message play:level1 }");
}

void Send(std::uint32_t id, std::uint32_t first = 0, const void* second = nullptr) {
  System::daemon->ProcMsg(id, first, reinterpret_cast<std::uintptr_t>(second), qen::category::kGui);
}

void Frame(RecordingEngine& engine) {
  Send(qen::message::kFrame);
  Send(qen::message::kDeliverQueue);
  engine.Animate(1.0 / 60);
  engine.Draw([&engine] { Send(qen::message::kRender, 0, &engine.viewport); });
}

// The button is in the middle of the world, which the camera sees in the middle of the window.
void ClickButton(RecordingEngine& engine) {
  qen::platform::POINT middle{engine.window.size.x / 2, engine.window.size.y / 2};
  qen::platform::ClientToScreen(System::GetMainWindowHandle(), &middle);
  qen::platform::SetCursorPos(middle.x, middle.y);
  Send(qen::message::kMouseMove);
  for (const std::uint32_t change : {qen::message::kButtonDown, qen::message::kButtonUp}) {
    Send(change, 1);
    Frame(engine);
  }
}

}  // namespace

int main() {
  RecordingEngine engine;
  AddPageFiles(engine);
  OpenWindow(engine.window.size.x, engine.window.size.y);
  void* module = LoadModule(GUI_MODULE_FILE);
  if (module == nullptr) {
    std::fprintf(stderr, "cannot load %s\n", GUI_MODULE_FILE);
    return 1;
  }
  const auto activate = reinterpret_cast<qen::ActivateDllFunction>(FindFunction(module, qen::kActivateDll));
  const auto deactivate = reinterpret_cast<qen::DeactivateDllFunction>(FindFunction(module, qen::kDeactivateDll));
  System::gui = activate();

  Game game;
  System::daemon->AddHandler(&game, Game::kCategory);
  System::gui->AddPage(u"menu.txt", &engine.camera);
  System::gui->SetViewport(&engine.viewport);
  System::gui->SetPage(0);
  Frame(engine);  // carries out what SetPage asked for
  ClickButton(engine);

  System::daemon->RemoveHandler(&game, qen::category::kAll);
  deactivate();
  System::gui = nullptr;
  UnloadModule(module);
  std::printf("%s\n", qen::base::ToUtf8(game.command).c_str());
  return game.command.empty() ? 1 : 0;
}
