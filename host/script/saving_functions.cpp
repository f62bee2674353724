// Scripts: writing definitions back.
#include <array>

#include "host/app/pages.h"
#include "host/script/script_functions.h"
#include "host/script/script_world.h"

namespace qen::host {
namespace {

int SavePage(ScriptWorld& world, lua_State* state) {
  const String name = WideArgument(state, 1);
  const String file = WideArgument(state, 2);
  Push(state, world.Gui().SavePage(file.c_str(), PageNamed(world.Gui(), name)));
  return 1;
}

int SaveStyle(ScriptWorld& world, lua_State*) {
  world.Gui().SaveStyle();
  return 0;
}

int SaveLanguage(ScriptWorld& world, lua_State* state) {
  world.Gui().SaveLanguage(WideArgument(state, 1));
  return 0;
}

constexpr std::array<ScriptFunction, 3> kFunctions{
    {{"save_page", SavePage}, {"save_style", SaveStyle}, {"save_language", SaveLanguage}}};

}  // namespace

ScriptFunctions SavingFunctions() { return kFunctions; }

}  // namespace qen::host
