// Scripts: the inventory bag.
#include <array>
#include <memory>
#include <stdexcept>
#include <vector>

#include "base/utf.h"
#include "engine/gui_page_object.h"
#include "engine/resource.h"
#include "engine/texture.h"
#include "host/app/pages.h"
#include "host/script/script_functions.h"
#include "host/script/script_world.h"

namespace qen::host {
namespace {

// The entry on top of the stack; null for false.
std::unique_ptr<ScriptBagEntry> ReadEntry(lua_State* state) {
  if (lua_isboolean(state, -1) && lua_toboolean(state, -1) == 0) return nullptr;
  auto entry = std::make_unique<ScriptBagEntry>();
  const int index = lua_gettop(state);
  entry->color = static_cast<std::uint32_t>(IntegerField(state, index, "color", 0xFFFFFF));
  const String texture = TextField(state, index, "texture");
  if (!texture.empty()) entry->texture = LoadTexture(texture);
  return entry;
}

int Bag(ScriptWorld& world, lua_State* state) {
  const std::uint32_t page = PageNamed(world.Gui(), WideArgument(state, 1));
  luaL_checktype(state, 2, LUA_TTABLE);
  std::vector<std::unique_ptr<ScriptBagEntry>> entries;
  const lua_Integer count = luaL_len(state, 2);
  for (lua_Integer i = 1; i <= count; ++i) {
    lua_geti(state, 2, i);
    entries.push_back(ReadEntry(state));
    lua_pop(state, 1);
  }
  world.SetBag(page, std::move(entries));
  return 0;
}

// The position in the list, from 1; nil when the bag is empty.
int BagSelected(ScriptWorld& world, lua_State* state) {
  const std::uint32_t page = PageNamed(world.Gui(), WideArgument(state, 1));
  if (!world.HasBag(page)) return 0;
  Push(state, std::int64_t{world.Gui().GetPage(page)->focusIndex} + 1);
  return 1;
}

constexpr std::array<ScriptFunction, 2> kFunctions{{{"bag", Bag}, {"bag_selected", BagSelected}}};

}  // namespace

ScriptFunctions BagFunctions() { return kFunctions; }

}  // namespace qen::host
