// Scripts: languages and the tooltip.
#include <array>

#include "host/script/script_functions.h"
#include "host/script/script_world.h"

namespace qen::host {
namespace {

int Text(ScriptWorld& world, lua_State* state) {
  Push(state, StringView(world.Gui().GetText(IntegerArgument(state, 1))));
  return 1;
}

int Language(ScriptWorld& world, lua_State* state) {
  if (!lua_isnoneornil(state, 1)) world.Gui().SetLanguage(WideArgument(state, 1));
  Push(state, StringView(world.Gui().GetLanguage()));
  return 1;
}

int Languages(ScriptWorld& world, lua_State* state) {
  PushList(state, world.Gui().GetLanguages());
  return 1;
}

int Tooltip(ScriptWorld& world, lua_State* state) {
  if (world.Tooltip()) {
    Push(state, std::string_view(*world.Tooltip()));
  } else {
    lua_pushnil(state);
  }
  return 1;
}

}  // namespace

ScriptFunctions TextFunctions() {
  static constexpr std::array<ScriptFunction, 4> kFunctions{{
      {"text", Text},
      {"language", Language},
      {"languages", Languages},
      {"tooltip", Tooltip},
  }};
  return kFunctions;
}

}  // namespace qen::host
