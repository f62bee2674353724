#include "host/script/script_state.h"

#include <algorithm>
#include <cstdlib>
#include <new>
#include <stdexcept>
#include <string>
#include <utility>

#include "host/script/closed_libraries.h"
#include "host/script/script_functions.h"
#include "host/script/script_world.h"

namespace qen::host {
namespace {

// Of a script that is not trusted.
constexpr std::size_t kMostMemory = std::size_t{256} * 1024 * 1024;
constexpr double kMostSeconds = 10.0;

constexpr int kEvents = LUA_MASKCOUNT | LUA_MASKCALL;  // calls, since one of a library may take long
constexpr int kInstructions = 100;                     // between two looks at the clock

// The text of an error, on top of the stack. Other values would be converted, outside of any protection.
std::string TextOf(lua_State* state) {
  return lua_type(state, -1) == LUA_TSTRING ? lua_tostring(state, -1)
                                            : "the script failed with something that is no text";
}

// The place in the script that runs, which a library's function is not: "file:line: ", empty for none.
std::string PlaceIn(lua_State* state) {
  lua_Debug caller;
  for (int level = 0; lua_getstack(state, level, &caller) != 0; ++level) {
    lua_getinfo(state, "Sl", &caller);
    if (caller.currentline > 0) return std::string(caller.short_src) + ':' + std::to_string(caller.currentline) + ": ";
  }
  return {};
}

int CallWork(lua_State* state) {
  const auto& work = **static_cast<const std::function<void(lua_State*)>**>(lua_touserdata(state, 1));
  lua_settop(state, 0);
  work(state);
  return 0;
}

// An error meets the handler of xpcall while the clock is not looked at.
int HandleInTime(lua_State* state) {
  lua_settop(state, 1);
  if (ScriptState::Of(state).World().Limit().IsOver()) return 1;
  lua_pushvalue(state, lua_upvalueindex(1));
  lua_insert(state, 1);
  lua_call(state, 1, 1);
  return 1;
}

int CallInTime(lua_State* state) {
  luaL_checktype(state, 2, LUA_TFUNCTION);
  lua_pushvalue(state, 2);
  lua_pushcclosure(state, HandleInTime, 1);
  lua_replace(state, 2);
  return lua_tocfunction(state, lua_upvalueindex(1))(state);
}

}  // namespace

ScriptState::ScriptState(ScriptWorld& world, Trust trust, double seconds)
    : world_(world),
      trust_(trust),
      seconds_(trust == Trust::Named ? seconds : std::min(seconds, kMostSeconds)),
      state_(luaL_newstate()) {
  if (state_ == nullptr) throw std::bad_alloc();
  *static_cast<ScriptState**>(lua_getextraspace(state_.get())) = this;
  if (!IsTrusted()) {
    used_ = static_cast<std::size_t>(lua_gc(state_.get(), LUA_GCCOUNT)) * 1024;
    lua_setallocf(state_.get(), Allocate, this);
  }
  Protect([this](lua_State*) { OpenLibraries(); });
}

ScriptState& ScriptState::Of(lua_State* state) { return **static_cast<ScriptState**>(lua_getextraspace(state)); }

void ScriptState::OpenLibraries() {
  lua_State* state = state_.get();
  if (IsTrusted()) {
    luaL_openlibs(state);
  } else {
    OpenClosedLibraries(state);
  }
  AddScriptFunctions(state);
  lua_getglobal(state, "xpcall");
  lua_pushcclosure(state, CallInTime, 1);
  lua_setglobal(state, "xpcall");
}

void ScriptState::Run(const std::filesystem::path& file) {
  Protect([&file](lua_State* state) {
    if (luaL_loadfilex(state, file.string().c_str(), "t") != LUA_OK) lua_error(state);
    lua_call(state, 0, 0);
  });
}

void ScriptState::RunText(const std::string& name, const std::string& text) {
  Protect([&](lua_State* state) {
    lua_getglobal(state, "load");  // which looks at the clock, where scripts are not trusted
    Push(state, std::string_view(text));
    Push(state, std::string_view('@' + name));
    lua_call(state, 2, 2);
    if (lua_isnil(state, -2)) lua_error(state);
    lua_pop(state, 1);
    lua_call(state, 0, 0);
  });
}

bool ScriptState::Call(int function, const std::function<void(lua_State* state)>& push) {
  bool isTrue = false;
  Protect([&](lua_State* state) {
    lua_rawgeti(state, LUA_REGISTRYINDEX, function);
    push(state);
    lua_call(state, 1, 1);
    isTrue = lua_toboolean(state, -1) != 0;
  });
  return isTrue;
}

// Nothing may fail outside of it: Lua would end the program.
void ScriptState::Protect(const std::function<void(lua_State* state)>& work) {
  lua_State* state = state_.get();
  const TimeLimit::Scope scope(world_.Limit(), seconds_);
  lua_sethook(state, LookAtTime, kEvents, kInstructions);
  if (lua_checkstack(state, 2) == 0) throw std::runtime_error("the script has no room left");
  lua_pushcfunction(state, CallWork);
  const auto* called = &work;
  lua_pushlightuserdata(state, &called);
  const int status = lua_pcall(state, 1, 0, 0);
  if (status == LUA_OK) return;
  std::string problem = status == LUA_ERRMEM ? place_ + "not enough memory" : TextOf(state);
  lua_pop(state, 1);
  std::ranges::replace(problem, '\n', ' ');
  throw std::runtime_error(problem);
}

// When time is over every instruction fails, so that the script does not go on behind a pcall.
void ScriptState::LookAtTime(lua_State* state, lua_Debug* /*event*/) {
  ScriptState& own = Of(state);
  const TimeLimit& limit = own.World().Limit();
  const bool isOver = limit.IsOver();
  const int wanted = isOver ? 1 : kInstructions;
  if (lua_gethookcount(state) != wanted) lua_sethook(state, LookAtTime, kEvents, wanted);
  if (!isOver && own.IsTrusted()) return;
  if (std::string place = PlaceIn(state); !place.empty()) own.place_ = std::move(place);  // in clearing up is none
  if (!isOver) return;
  lua_pushstring(state, (own.place_ + limit.Complaint()).c_str());
  lua_error(state);
}

void* ScriptState::Allocate(void* self, void* block, std::size_t before, std::size_t after) {
  std::size_t& used = static_cast<ScriptState*>(self)->used_;
  if (block == nullptr) before = 0;  // it is the kind of object then
  if (after == 0) {
    std::free(block);
    used -= before;
    return nullptr;
  }
  if (after > before && used + (after - before) > kMostMemory) return nullptr;
  void* given = std::realloc(block, after);
  if (given != nullptr) used += after - before;
  return given;
}

}  // namespace qen::host
