#include "host/script/script.h"

#include <algorithm>
#include <exception>
#include <new>
#include <stdexcept>
#include <string>

#include "host/script/script_functions.h"
#include "host/script/script_world.h"

namespace qen::host {
namespace {

ScriptWorld*& WorldOf(lua_State* state) { return *static_cast<ScriptWorld**>(lua_getextraspace(state)); }

int Call(lua_State* state) {
  const auto* function = static_cast<const ScriptFunction*>(lua_touserdata(state, lua_upvalueindex(1)));
  try {
    return function->call(*WorldOf(state), state);
  } catch (const HandlerFailure& failure) {
    lua_pushstring(state, failure.what());
  } catch (const std::exception& failure) {
    luaL_where(state, 1);
    lua_pushstring(state, failure.what());
    lua_concat(state, 2);
  }
  return lua_error(state);
}

int OpenAll(lua_State* state) {
  luaL_openlibs(state);
  lua_newtable(state);
  for (const auto& functions : {PageFunctions(), InputFunctions(), WidgetFunctions(), ListFunctions(), TextFunctions(),
                                BagFunctions(), GameFunctions(), PictureFunctions(), SavingFunctions()}) {
    AddFunctions(state, functions);
  }
  lua_setglobal(state, "gui");
  lua_pushglobaltable(state);
  AddFunctions(state, GlobalFunctions());
  return 0;
}

[[noreturn]] void Fail(lua_State* state) {
  const char* text = lua_tostring(state, -1);
  std::string problem = text != nullptr ? text : "the script failed with something that is no text";
  std::ranges::replace(problem, '\n', ' ');
  throw std::runtime_error(problem);
}

}  // namespace

void AddFunctions(lua_State* state, ScriptFunctions functions) {
  for (const ScriptFunction& function : functions) {
    new (lua_newuserdatauv(state, sizeof function, 0)) ScriptFunction(function);
    lua_pushcclosure(state, Call, 1);
    lua_setfield(state, -2, function.name);
  }
}

void Script::Close::operator()(lua_State* state) const { lua_close(state); }

Script::Script(Stage& stage, const ScriptOptions& options) : state_(luaL_newstate()) {
  if (state_ == nullptr) throw std::bad_alloc();
  world_ = std::make_unique<ScriptWorld>(stage, state_.get(), options);
  WorldOf(state_.get()) = world_.get();
  lua_pushcfunction(state_.get(), OpenAll);
  if (lua_pcall(state_.get(), 0, 0, 0) != LUA_OK) Fail(state_.get());
  RunGame();
  // A change of pages that a script posted before the first page is there would know nothing of that one.
  stage.Deliver();
}

void Script::RunGame() {
  const std::filesystem::path& file = world_->GetStage().GameScript();
  if (!file.empty()) Run(file);
}

std::optional<std::string> Script::TakeFailure() { return world_->TakeFailure(); }

Script::~Script() = default;

void Script::Run(const std::filesystem::path& file) {
  lua_State* state = state_.get();
  if (luaL_loadfilex(state, file.string().c_str(), "t") != LUA_OK) Fail(state);
  if (lua_pcall(state, 0, 0, 0) != LUA_OK) Fail(state);
}

}  // namespace qen::host
