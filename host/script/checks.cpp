// Scripts: checks. One that fails is an error of the script.
#include <array>
#include <stdexcept>
#include <string>

#include "host/script/script_functions.h"
#include "host/script/script_state.h"
#include "host/script/script_world.h"

namespace qen::host {
namespace {

constexpr int kDeepest = 100;  // tables in tables, that are compared

// The message at `index`, put in front of what was found.
std::string Introduction(lua_State* state, int index) {
  return lua_isnoneornil(state, index) ? std::string() : TextArgument(state, index) + ": ";
}

std::string Describe(lua_State* state, int index) {
  std::size_t size = 0;
  const char* text = luaL_tolstring(state, index, &size);
  std::string description(text, size);
  lua_pop(state, 1);
  return lua_type(state, index) == LUA_TSTRING ? '"' + description + '"' : description;
}

bool AreEqual(lua_State* state, int a, int b, int depth);

bool HasOwn(lua_State* state, int table, int key) {
  lua_pushvalue(state, key);
  const bool has = lua_rawget(state, table) != LUA_TNIL;
  lua_pop(state, 1);
  return has;
}

// Whether each field of the first table is the same in the second one; if `missing`, of those the second has not
// itself.
bool IsWithin(lua_State* state, int a, int b, int depth, bool missing) {
  lua_pushnil(state);
  while (lua_next(state, a) != 0) {
    const int value = lua_gettop(state);
    lua_pushvalue(state, value - 1);
    lua_gettable(state, b);
    const bool same = (missing && HasOwn(state, b, value - 1)) || AreEqual(state, value, value + 1, depth);
    lua_pop(state, 2);
    if (same) continue;
    lua_pop(state, 1);
    return false;
  }
  return true;
}

// Tables are equal when their fields are. What one takes long to compare, the clock ends between two values.
bool AreEqual(lua_State* state, int a, int b, int depth) {
  ScriptState::Of(state).World().Limit().Check();
  if (lua_compare(state, a, b, LUA_OPEQ) != 0) return true;
  if (!lua_istable(state, a) || !lua_istable(state, b)) return false;
  if (depth == 0) throw std::runtime_error("the tables are too deep to compare");
  luaL_checkstack(state, 8, "the tables are too deep");
  return IsWithin(state, a, b, depth - 1, false) && IsWithin(state, b, a, depth - 1, true);
}

// Tables down to a depth and length that a line can show.
std::string DescribeValue(lua_State* state, int index, int depth = 3) {
  if (!lua_istable(state, index) || depth == 0) return Describe(state, index);
  constexpr std::size_t kLongest = 1000;
  std::string text = "{";
  lua_pushnil(state);
  while (lua_next(state, index) != 0) {
    const int value = lua_gettop(state);
    text += text.size() > 1 ? ", " : "";
    if (lua_type(state, value - 1) == LUA_TSTRING) text += std::string(lua_tostring(state, value - 1)) + " = ";
    text += DescribeValue(state, value, depth - 1);
    lua_pop(state, 1);
    if (text.size() < kLongest) continue;
    lua_pop(state, 1);
    return text + ", ...";
  }
  return text + "}";
}

int Check(ScriptWorld&, lua_State* state) {
  luaL_checkany(state, 1);
  if (lua_toboolean(state, 1) != 0) return 0;
  throw std::runtime_error(Introduction(state, 2) + "the check failed");
}

int CheckEqual(ScriptWorld&, lua_State* state) {
  lua_settop(state, 3);
  if (AreEqual(state, 1, 2, kDeepest)) return 0;
  throw std::runtime_error(Introduction(state, 3) + "got " + DescribeValue(state, 1) + ", wanted " +
                           DescribeValue(state, 2));
}

}  // namespace

ScriptFunctions GlobalFunctions() {
  static constexpr std::array<ScriptFunction, 2> kFunctions{{{"check", Check}, {"check_equal", CheckEqual}}};
  return kFunctions;
}

}  // namespace qen::host
