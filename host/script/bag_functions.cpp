// Scripts: the inventory bag.
#include <array>
#include <memory>
#include <stdexcept>
#include <utility>

#include "base/utf.h"
#include "engine/gui_page_object.h"
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

std::uint32_t BagArgument(ScriptWorld& world, lua_State* state) {
  const String name = WideArgument(state, 1);
  const std::uint32_t page = PageNamed(world.Gui(), name);
  if (world.Gui().GetPage(page)->kind == page_kind::kBag) return page;
  throw std::runtime_error(base::ToUtf8(name) + " is no bag: the description loads it by name, not bagname");
}

int Bag(ScriptWorld& world, lua_State* state) {
  luaL_checktype(state, 2, LUA_TTABLE);
  BagEntries entries;
  const lua_Integer count = luaL_len(state, 2);
  for (lua_Integer i = 1; i <= count; ++i) {
    lua_geti(state, 2, i);
    entries.push_back(ReadEntry(state));
    lua_pop(state, 1);
  }
  const std::uint32_t bag = BagArgument(world, state);  // what a metatable does may take it away
  world.Pictures().Fill(world.Gui(), bag, std::move(entries));
  return 0;
}

// The position in the list, from 1; nil when the bag is empty.
int BagSelected(ScriptWorld& world, lua_State* state) {
  const std::uint32_t bag = BagArgument(world, state);
  if (world.Pictures().IsFilled(bag)) {
    Push(state, std::int64_t{world.Gui().GetPage(bag)->focusIndex} + 1);
  } else {
    lua_pushnil(state);
  }
  return 1;
}

}  // namespace

ScriptFunctions BagFunctions() {
  static constexpr std::array<ScriptFunction, 2> kFunctions{{{"bag", Bag}, {"bag_selected", BagSelected}}};
  return kFunctions;
}

}  // namespace qen::host
