// The functions that scripts may call.
#pragma once

#include <span>

#include "host/script/lua_values.h"

namespace qen::host {

class ScriptWorld;

// Takes its arguments from the stack and returns how many results it pushed. A std::exception that it throws becomes an
// error of the script at the calling line.
struct ScriptFunction {
  const char* name;
  int (*call)(ScriptWorld& world, lua_State* state);
};
using ScriptFunctions = std::span<const ScriptFunction>;

// Of the table "gui", by subject.
ScriptFunctions PageFunctions();
ScriptFunctions InputFunctions();
ScriptFunctions WidgetFunctions();
ScriptFunctions ListFunctions();
ScriptFunctions TextFunctions();
ScriptFunctions BagFunctions();
ScriptFunctions GameFunctions();
ScriptFunctions PictureFunctions();
ScriptFunctions SavingFunctions();

ScriptFunctions ListMethods();      // of what gui.list gives
ScriptFunctions GlobalFunctions();  // the checks

// Adds the functions to the table on top of the stack.
void AddFunctions(lua_State* state, ScriptFunctions functions);

void AddScriptFunctions(lua_State* state);  // all of them

}  // namespace qen::host
