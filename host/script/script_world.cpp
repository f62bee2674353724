#include "host/script/script_world.h"

#include <chrono>
#include <stdexcept>
#include <thread>

#include "base/utf.h"
#include "engine/gui_page_object.h"
#include "engine/item_info.h"
#include "engine/resource.h"
#include "engine/texture.h"
#include "host/app/pages.h"

namespace qen::host {

Texture* LoadTexture(const String& file) {
  Texture* texture = TextureManager::GetSingleton()->Load(file, kDefaultGroup, 0, 0);
  if (texture == nullptr) throw std::runtime_error("cannot load the picture " + base::ToUtf8(file));
  return texture;
}

ScriptWorld::ScriptWorld(Stage& stage, lua_State* state, const ScriptOptions& options)
    : stage_(stage), state_(state), options_(options) {
  if (options.listens) tap_.emplace([this](const base::Call& call) { OnCall(call); });
  stage_.GetGame().SetHook([this](GuiMessage& record) { return OnCommand(record); });
  stage_.SetLogListener([this](StringView line) { log_.push_back(base::ToUtf8(line)); });
}

ScriptWorld::~ScriptWorld() {
  stage_.GetGame().SetHook({});
  stage_.SetLogListener({});
  for (const auto& [page, entries] : bags_) {
    if (ICGUIPageObject* bag = Gui().GetPage(page)) bag->SetBagItems({});
  }
}

void ScriptWorld::OnCall(const base::Call& call) {
  if (call.name == "ISound::Play" && call.arguments.back() != base::CallArgument("")) {
    sounds_.push_back(std::get<std::string>(call.arguments.back()));
  }
  // Nothing else is written in two dimensions while a script runs.
  if (call.name == "Drawing::DrawText2D") tooltip_ = std::get<std::string>(call.arguments.back());
}

void ScriptWorld::Frame(double seconds) {
  if (options_.realtime) std::this_thread::sleep_for(std::chrono::duration<double>(seconds));
  tooltip_.reset();
  stage_.Update(seconds);
  if (stage_.IsOffscreen()) {
    stage_.DrawHidden();
  } else {
    ShowFrame();
  }
  if (const auto failure = TakeFailure()) throw HandlerFailure(*failure);
}

void ScriptWorld::ShowFrame() {
  stage_.Draw();
  stage_.Window().Swap();
  while (const auto event = stage_.Window().NextEvent()) {
    if (event->kind == InputKind::Quit) throw std::runtime_error("the window was closed");
  }
}

void ScriptWorld::SetHandler(const String& word) {
  const auto [handler, isNew] = handlers_.try_emplace(word, LUA_NOREF);
  luaL_unref(state_, LUA_REGISTRYINDEX, handler->second);
  handler->second = luaL_ref(state_, LUA_REGISTRYINDEX);
}

// An error must not pass through the GUI, which is in the middle of a delivery: it waits for the end of the frame.
bool ScriptWorld::OnCommand(GuiMessage& record) {
  const auto handler = handlers_.find(record.command);
  if (handler == handlers_.end()) return false;
  const int top = lua_gettop(state_);
  lua_rawgeti(state_, LUA_REGISTRYINDEX, handler->second);
  PushRecord(record);
  if (lua_pcall(state_, 1, 1, 0) != LUA_OK) {
    const char* problem = lua_tostring(state_, -1);
    failure_ = problem != nullptr ? problem : "a handler failed";
  } else if (lua_toboolean(state_, -1) != 0) {
    record.handled = 1;
  }
  lua_settop(state_, top);
  return true;
}

void ScriptWorld::PushRecord(const GuiMessage& record) {
  lua_createtable(state_, 0, 7);
  SetField(state_, "text", StringView(record.text));
  SetField(state_, "command", StringView(record.command));
  SetField(state_, "argument", StringView(record.argument));
  SetField(state_, "value", std::int64_t{record.value});
  if (record.page != nullptr) SetField(state_, "page", StringView(ShortName(record.page->baseName)));
  ICGUIObject* source = FindLiving(Gui(), record.source);
  if (source == nullptr) return;
  SetField(state_, "source", StringView(source->info->name));
  SetField(state_, "id", std::int64_t{source->GetId()});
}

void ScriptWorld::SetBag(std::uint32_t page, std::vector<std::unique_ptr<ScriptBagEntry>> entries) {
  std::vector<IBagEntry*> listed;
  listed.reserve(entries.size());
  for (const auto& entry : entries) listed.push_back(entry.get());
  Gui().GetPage(page)->SetBagItems(std::move(listed));
  bags_[page] = std::move(entries);
}

}  // namespace qen::host
