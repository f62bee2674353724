// Scripts: writing definitions back.
#include <array>

#include "host/app/pages.h"
#include "host/script/script_functions.h"
#include "host/script/script_world.h"
#include "host/script/writing_place.h"

namespace qen::host {
namespace {

int SavePage(ScriptWorld& world, lua_State* state) {
  const String name = WideArgument(state, 1);
  const String file = WritableDefinition(state, 2, "gui.save_page");
  Push(state, world.Gui().SavePage(file.c_str(), PageNamed(world.Gui(), name)));
  return 1;
}

// Where the style and the language file are, the description says: anywhere.
int SaveStyle(ScriptWorld& world, lua_State* state) {
  NeedTrust(state, "gui.save_style");
  world.Gui().SaveStyle();
  return 0;
}

int SaveLanguage(ScriptWorld& world, lua_State* state) {
  NeedTrust(state, "gui.save_language");
  world.Gui().SaveLanguage(WideArgument(state, 1));
  return 0;
}

}  // namespace

ScriptFunctions SavingFunctions() {
  static constexpr std::array<ScriptFunction, 3> kFunctions{
      {{"save_page", SavePage}, {"save_style", SaveStyle}, {"save_language", SaveLanguage}}};
  return kFunctions;
}

}  // namespace qen::host
