// Scripts: the cursor, the buttons and the keys.
#include <array>

#include "engine/messages.h"
#include "host/app/pages.h"
#include "host/app/pointing.h"
#include "host/script/script_functions.h"
#include "host/script/script_world.h"

namespace qen::host {
namespace {

void HoverWidget(ScriptWorld& world, const String& name) {
  Stage& stage = world.GetStage();
  ICGUIObject& widget = FindWidget(world.Gui(), name);
  stage.MoveCursor(FindPointOn(world.Gui(), widget, stage.GetCamera(), stage.Window().ClientSize()));
}

int Move(ScriptWorld& world, lua_State* state) {
  world.GetStage().MoveCursor({IntegerArgument(state, 1), IntegerArgument(state, 2)});
  return 0;
}

int Hover(ScriptWorld& world, lua_State* state) {
  HoverWidget(world, WideArgument(state, 1));
  return 0;
}

int Press(ScriptWorld& world, lua_State*) {
  world.GetStage().Send(message::kButtonDown, message::kMainButton);
  return 0;
}

int Release(ScriptWorld& world, lua_State*) {
  world.GetStage().Send(message::kButtonUp, message::kMainButton);
  return 0;
}

int Click(ScriptWorld& world, lua_State* state) {
  HoverWidget(world, WideArgument(state, 1));
  world.Frame(Stage::kStep);
  Press(world, state);
  world.Frame(Stage::kStep);
  Release(world, state);
  world.Frame(Stage::kStep);
  return 0;
}

int Wheel(ScriptWorld& world, lua_State* state) {
  world.GetStage().SendWheel(IntegerArgument(state, 1));
  return 0;
}

int Key(ScriptWorld& world, lua_State* state) {
  world.GetStage().SendKey(static_cast<Char>(IntegerArgument(state, 1)));
  return 0;
}

int Type(ScriptWorld& world, lua_State* state) {
  world.GetStage().SendText(WideArgument(state, 1));
  return 0;
}

int Focus(ScriptWorld& world, lua_State* state) {
  constexpr std::array<const char*, 3> kDirections{"next", "prev", nullptr};
  if (luaL_checkoption(state, 1, "next", kDirections.data()) == 0) {
    world.Gui().FocusNext();
  } else {
    world.Gui().FocusPrev();
  }
  world.GetStage().Send(message::kMouseMove);  // as the system says when its cursor was moved
  return 0;
}

}  // namespace

ScriptFunctions InputFunctions() {
  static constexpr std::array<ScriptFunction, 9> kFunctions{{
      {"move", Move},
      {"hover", Hover},
      {"press", Press},
      {"release", Release},
      {"click", Click},
      {"wheel", Wheel},
      {"key", Key},
      {"type", Type},
      {"focus", Focus},
  }};
  return kFunctions;
}

}  // namespace qen::host
