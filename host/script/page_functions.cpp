// Scripts: loading and pages.
#include <array>
#include <stdexcept>

#include "base/utf.h"
#include "engine/gui_page_object.h"
#include "host/app/pages.h"
#include "host/app/post_command.h"
#include "host/script/script_functions.h"
#include "host/script/script_world.h"

namespace qen::host {
namespace {

constexpr std::int32_t kLongestWait = 600;  // frames

int PushPageNames(lua_State* state, IGui& gui, const std::vector<std::uint32_t>& pages) {
  std::vector<String> names;
  names.reserve(pages.size());
  for (const std::uint32_t page : pages) names.push_back(ShortName(gui.GetPageName(page)));
  PushList(state, names);
  return 1;
}

int Load(ScriptWorld& world, lua_State* state) {
  Push(state, world.GetStage().LoadDescription(WideArgument(state, 1)));
  return 1;
}

int Unload(ScriptWorld& world, lua_State*) {
  world.Pictures().TakeBack(world.Gui());
  world.Gui().Release();
  return 0;
}

int Reload(ScriptWorld& world, lua_State*) {
  world.GetStage().Reload();
  return 0;
}

int SetPage(ScriptWorld& world, lua_State* state) {
  world.Gui().SetPage(PageNamed(world.Gui(), WideArgument(state, 1)));
  return 0;
}

int PostText(ScriptWorld& world, lua_State* state) {
  PostCommand(world.Gui(), WideArgument(state, 1));
  return 0;
}

// Starts an animation of a page, found as pages are: by the name of its file. False when one is playing already.
int Play(ScriptWorld& world, lua_State* state) {
  const String wanted = ShortName(WideArgument(state, 2));
  ICGUIPageObject& page = *world.Gui().GetPage(PageNamed(world.Gui(), WideArgument(state, 1)));
  for (std::size_t i = 0; i < page.anims.size(); ++i) {
    if (ShortName(page.anims[i]->name) != wanted) continue;
    const bool isFree = page.GetPlayingAnim() == nullptr;
    page.PlayAnim(static_cast<std::int32_t>(i), false);
    Push(state, isFree);
    return 1;
  }
  throw std::runtime_error("the page has no animation \"" + base::ToUtf8(wanted) + "\"");
}

int Pages(ScriptWorld& world, lua_State* state) {
  std::vector<std::uint32_t> pages(world.Gui().GetPageCount());
  for (std::uint32_t page = 0; page < pages.size(); ++page) pages[page] = page;
  return PushPageNames(state, world.Gui(), pages);
}

int Active(ScriptWorld& world, lua_State* state) {
  return PushPageNames(state, world.Gui(), world.Gui().GetActivePages());
}

int Rendered(ScriptWorld& world, lua_State* state) {
  return PushPageNames(state, world.Gui(), world.Gui().GetRenderPages());
}

int Title(ScriptWorld& world, lua_State* state) {
  Push(state, world.GetStage().Window().Title());
  return 1;
}

int Frame(ScriptWorld& world, lua_State* state) {
  const std::int32_t count = IntegerArgument(state, 1, 1);
  const double seconds = luaL_optnumber(state, 2, Stage::kStep);
  luaL_argcheck(state, seconds >= 0.0, 2, "time does not run backwards");
  for (std::int32_t i = 0; i < count; ++i) world.Frame(seconds);
  return 0;
}

int Settle(ScriptWorld& world, lua_State* state) {
  const std::int32_t longest = IntegerArgument(state, 1, kLongestWait);
  luaL_argcheck(state, longest >= 1, 1, "not a number of frames");
  const Game& game = world.GetStage().GetGame();
  const auto step = [&] {
    const std::uint64_t before = game.CommandCount();
    world.Frame(Stage::kStep);
    return game.CommandCount() > before;
  };
  if (host::Settle(world.Gui(), longest, step)) return 0;
  ICGUIAnim* playing = FindPlayingAnim(world.Gui());
  const std::string what = playing != nullptr ? base::ToUtf8(playing->name) + " still plays" : "commands still wait";
  throw std::runtime_error(what + " after " + std::to_string(longest) + " frames");
}

}  // namespace

ScriptFunctions PageFunctions() {
  static constexpr std::array<ScriptFunction, 12> kFunctions{{
      {"load", Load},
      {"unload", Unload},
      {"reload", Reload},
      {"setpage", SetPage},
      {"command", PostText},
      {"play", Play},
      {"pages", Pages},
      {"active", Active},
      {"rendered", Rendered},
      {"title", Title},
      {"frame", Frame},
      {"settle", Settle},
  }};
  return kFunctions;
}

}  // namespace qen::host
