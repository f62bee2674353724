#include "host/script/script_functions.h"

#include <exception>
#include <new>
#include <stdexcept>
#include <string>

#include "host/script/script_state.h"
#include "host/script/script_world.h"

namespace qen::host {
namespace {

int Call(lua_State* state) {
  const auto* function = static_cast<const ScriptFunction*>(lua_touserdata(state, lua_upvalueindex(1)));
  try {
    return function->call(ScriptState::Of(state).World(), state);
  } catch (const HandlerFailure& failure) {
    lua_pushstring(state, failure.what());
  } catch (const std::exception& failure) {
    luaL_where(state, 1);
    lua_pushstring(state, failure.what());
    lua_concat(state, 2);
  }
  return lua_error(state);
}

}  // namespace

void AddFunctions(lua_State* state, ScriptFunctions functions) {
  for (const ScriptFunction& function : functions) {
    new (lua_newuserdatauv(state, sizeof function, 0)) ScriptFunction(function);
    lua_pushcclosure(state, Call, 1);
    lua_setfield(state, -2, function.name);
  }
}

void AddScriptFunctions(lua_State* state) {
  lua_newtable(state);
  for (const auto& functions : {PageFunctions(), InputFunctions(), WidgetFunctions(), ListFunctions(), TextFunctions(),
                                BagFunctions(), GameFunctions(), PictureFunctions(), SavingFunctions()}) {
    AddFunctions(state, functions);
  }
  lua_setglobal(state, "gui");
  lua_pushglobaltable(state);
  AddFunctions(state, GlobalFunctions());
  lua_pop(state, 1);
}

}  // namespace qen::host
