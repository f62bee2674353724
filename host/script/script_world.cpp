#include "host/script/script_world.h"

#include <chrono>
#include <stdexcept>
#include <thread>

#include "base/utf.h"
#include "engine/gui_page_object.h"
#include "engine/item_info.h"
#include "host/app/pages.h"
#include "host/script/script_state.h"

namespace qen::host {

ScriptWorld::ScriptWorld(Stage& stage, const ScriptOptions& options) : stage_(stage), options_(options) {
  if (options.listens) tap_.emplace([this](const base::Call& call) { OnCall(call); });
  stage_.GetGame().SetHook([this](GuiMessage& record) { return OnCommand(record); });
  stage_.SetLogListener([this](StringView line) { log_.push_back(base::ToUtf8(line)); });
  stage_.SetReloadListener([this] { pictures_.TakeBack(Gui()); });
}

ScriptWorld::~ScriptWorld() {
  stage_.GetGame().SetHook({});
  stage_.SetLogListener({});
  stage_.SetReloadListener({});
  pictures_.TakeBack(Gui());
}

void ScriptWorld::OnCall(const base::Call& call) {
  if (call.name == "ISound::Play" && call.arguments.back() != base::CallArgument("")) {
    sounds_.push_back(std::get<std::string>(call.arguments.back()));
  }
  if (call.name == "Drawing::DrawText2D" && stage_.IsDrawingTooltip())
    tooltip_ = std::get<std::string>(call.arguments.back());
}

void ScriptWorld::Frame(double seconds) {
  if (options_.realtime) std::this_thread::sleep_for(std::chrono::duration<double>(seconds));
  limit_.Check();
  tooltip_.reset();
  stage_.Update(seconds);
  if (stage_.IsOffscreen()) {
    stage_.DrawHidden();
  } else {
    ShowFrame();
  }
  pictures_.EndFrame();
  if (const auto failure = TakeFailure()) throw HandlerFailure(*failure);
}

void ScriptWorld::ShowFrame() {
  stage_.Draw();
  stage_.Window().Swap();
  while (const auto event = stage_.Window().NextEvent()) {
    if (event->kind == InputKind::Quit) throw std::runtime_error("the window was closed");
  }
}

void ScriptWorld::SetHandler(lua_State* state, const String& word) {
  const Handler handler{&ScriptState::Of(state), luaL_ref(state, LUA_REGISTRYINDEX)};
  const auto [known, isNew] = handlers_.try_emplace(word, handler);
  if (isNew) return;
  if (known->second.state == handler.state) luaL_unref(state, LUA_REGISTRYINDEX, known->second.function);
  known->second = handler;
}

// An error must not pass through the GUI, which is in the middle of a delivery: it waits for the end of the frame.
bool ScriptWorld::OnCommand(GuiMessage& record) {
  const auto found = handlers_.find(record.command);
  if (found == handlers_.end()) return false;
  const Handler handler = found->second;
  try {
    const auto push = [&](lua_State* state) { PushRecord(state, record); };
    if (handler.state->Call(handler.function, push)) record.handled = 1;
  } catch (const std::exception& failure) {
    failure_ = failure.what();
    record.handled = 1;  // or it would fail again in each frame
  }
  return true;
}

void ScriptWorld::PushRecord(lua_State* state, const GuiMessage& record) {
  lua_createtable(state, 0, 7);
  SetField(state, "text", StringView(record.text));
  SetField(state, "command", StringView(record.command));
  SetField(state, "argument", StringView(record.argument));
  SetField(state, "value", std::int64_t{record.value});
  if (record.page != nullptr) SetField(state, "page", StringView(ShortName(record.page->baseName)));
  ICGUIObject* source = FindLiving(Gui(), record.source);
  if (source == nullptr) return;
  SetField(state, "source", StringView(source->info->name));
  SetField(state, "id", std::int64_t{source->GetId()});
}

}  // namespace qen::host
