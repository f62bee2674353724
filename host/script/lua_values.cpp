#include "host/script/lua_values.h"

#include <algorithm>
#include <limits>

#include "base/utf.h"

namespace qen::host {
namespace {

std::int32_t Saturate(lua_Integer value) {
  using Limits = std::numeric_limits<std::int32_t>;
  return static_cast<std::int32_t>(std::clamp<lua_Integer>(value, Limits::min(), Limits::max()));
}

}  // namespace

void Push(lua_State* state, bool value) { lua_pushboolean(state, value ? 1 : 0); }
void Push(lua_State* state, std::int64_t value) { lua_pushinteger(state, value); }
void Push(lua_State* state, double value) { lua_pushnumber(state, value); }
void Push(lua_State* state, std::string_view value) { lua_pushlstring(state, value.data(), value.size()); }
void Push(lua_State* state, StringView value) { Push(state, std::string_view(base::ToUtf8(value))); }

std::string TextArgument(lua_State* state, int index) {
  std::size_t size = 0;
  const char* text = luaL_checklstring(state, index, &size);
  return {text, size};
}

String WideArgument(lua_State* state, int index) { return base::ToUtf16(TextArgument(state, index)); }

std::int32_t IntegerArgument(lua_State* state, int index) { return Saturate(luaL_checkinteger(state, index)); }

std::int32_t IntegerArgument(lua_State* state, int index, std::int32_t otherwise) {
  return Saturate(luaL_optinteger(state, index, otherwise));
}

String TextField(lua_State* state, int index, const char* key, StringView otherwise) {
  luaL_checktype(state, index, LUA_TTABLE);
  const bool given = lua_getfield(state, index, key) != LUA_TNIL;
  String text = given ? WideArgument(state, -1) : String(otherwise);
  lua_pop(state, 1);
  return text;
}

std::int32_t IntegerField(lua_State* state, int index, const char* key, std::int32_t otherwise) {
  luaL_checktype(state, index, LUA_TTABLE);
  lua_getfield(state, index, key);
  const std::int32_t value = IntegerArgument(state, -1, otherwise);
  lua_pop(state, 1);
  return value;
}

std::int32_t FlagOrInteger(lua_State* state, int index) {
  return lua_isboolean(state, index) ? lua_toboolean(state, index) : IntegerArgument(state, index);
}

}  // namespace qen::host
