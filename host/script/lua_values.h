// Values between Lua and the program. Lua is its C++ build: errors are exceptions, so destructors run.
#pragma once

#include <cstdint>
#include <lua.hpp>
#include <string>
#include <string_view>

#include "engine/types.h"

namespace qen::host {

// Texts are UTF-8 in Lua.
void Push(lua_State* state, bool value);
void Push(lua_State* state, std::int64_t value);
void Push(lua_State* state, double value);
void Push(lua_State* state, std::string_view value);
void Push(lua_State* state, StringView value);

// A list of everything in the range.
template <class Range>
void PushList(lua_State* state, const Range& values) {
  lua_createtable(state, static_cast<int>(values.size()), 0);
  lua_Integer position = 0;
  for (const auto& value : values) {
    Push(state, value);
    lua_rawseti(state, -2, ++position);
  }
}

// Into the table on top of the stack.
template <class Value>
void SetField(lua_State* state, const char* key, const Value& value) {
  Push(state, value);
  lua_setfield(state, -2, key);
}

// Arguments of a function; a wrong one is an error of the script. Integers beyond 32 bits saturate.
std::string TextArgument(lua_State* state, int index);
String WideArgument(lua_State* state, int index);
std::int32_t IntegerArgument(lua_State* state, int index);
std::int32_t IntegerArgument(lua_State* state, int index, std::int32_t otherwise);

// A field of the table at `index`, which must be one; `otherwise` when it is nil.
String TextField(lua_State* state, int index, const char* key, StringView otherwise = {});
std::int32_t IntegerField(lua_State* state, int index, const char* key, std::int32_t otherwise);

// The value at `index` as a number: true is 1 and false 0.
std::int32_t FlagOrInteger(lua_State* state, int index);

}  // namespace qen::host
