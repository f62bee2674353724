// Scripts: the game's side of the commands, and what was heard and logged.
#include <array>

#include "host/script/script_functions.h"
#include "host/script/script_world.h"

namespace qen::host {
namespace {

int On(ScriptWorld& world, lua_State* state) {
  const String word = WideArgument(state, 1);
  luaL_checktype(state, 2, LUA_TFUNCTION);
  lua_settop(state, 2);
  world.SetHandler(state, word);
  return 0;
}

int Sounds(ScriptWorld& world, lua_State* state) {
  PushList(state, world.TakeSounds());
  return 1;
}

int Log(ScriptWorld& world, lua_State* state) {
  PushList(state, world.TakeLog());
  return 1;
}

}  // namespace

ScriptFunctions GameFunctions() {
  static constexpr std::array<ScriptFunction, 3> kFunctions{{{"on", On}, {"sounds", Sounds}, {"log", Log}}};
  return kFunctions;
}

}  // namespace qen::host
