#include "host/script/closed_libraries.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <lua.hpp>
#include <span>
#include <string_view>

#include "host/script/pattern_cost.h"

namespace qen::host {
namespace {

constexpr lua_Integer kMostTurns = 100'000'000;  // of a library's loop: about a second
constexpr double kMostSteps = 1e10;              // of a pattern: some seconds

// A guard stands in for the function that it keeps, looks at its arguments and goes on as that one.
int GoOn(lua_State* state) { return lua_tocfunction(state, lua_upvalueindex(1))(state); }

// Keeps a text and how much of it was given.
int NextPiece(lua_State* state) {
  constexpr std::size_t kPiece = 4096;
  std::size_t size = 0;
  const char* text = lua_tolstring(state, lua_upvalueindex(1), &size);
  const auto start = static_cast<std::size_t>(lua_tointeger(state, lua_upvalueindex(2)));
  const std::size_t count = std::min(kPiece, size - start);
  lua_pushinteger(state, static_cast<lua_Integer>(start) + static_cast<lua_Integer>(count));
  lua_replace(state, lua_upvalueindex(2));
  lua_pushlstring(state, text + start, count);
  return 1;
}

// The parser may take long on some texts: it calls for pieces, and with each call the clock is looked at.
int LoadText(lua_State* state) {
  luaL_checktype(state, 1, LUA_TSTRING);
  if (lua_gettop(state) < 3) lua_settop(state, 3);
  if (lua_isnil(state, 2)) lua_copy(state, 1, 2);  // the name
  lua_pushliteral(state, "t");
  lua_replace(state, 3);
  lua_pushvalue(state, 1);
  lua_pushinteger(state, 0);
  lua_pushcclosure(state, NextPiece, 2);
  lua_replace(state, 1);
  return GoOn(state);
}

// Finalizers run where the clock is not looked at.
int SetMetatable(lua_State* state) {
  if (lua_istable(state, 2)) {
    lua_pushliteral(state, "__gc");
    luaL_argcheck(state, lua_rawget(state, 2) == LUA_TNIL, 2, "__gc is not for scripts of the data");
    lua_pop(state, 1);
  }
  return GoOn(state);
}

void CheckTurns(lua_State* state, int argument, lua_Integer turns) {
  luaL_argcheck(state, turns <= kMostTurns, argument, "too many");
}

int Repeat(lua_State* state) {
  CheckTurns(state, 2, luaL_checkinteger(state, 2));
  return GoOn(state);
}

using StepCount = double (*)(std::string_view text, std::string_view pattern);

int MatchWithin(lua_State* state, StepCount count) {
  std::size_t length = 0;
  std::size_t size = 0;
  const char* text = luaL_checklstring(state, 1, &length);
  const char* pattern = luaL_checklstring(state, 2, &size);
  const bool fits = count({text, length}, {pattern, size}) <= kMostSteps;
  luaL_argcheck(state, fits, 2, "the pattern may take too long on so long a text");
  return GoOn(state);
}

int Match(lua_State* state) {
  return MatchWithin(state, [](auto text, auto pattern) { return WorstMatchSteps(text.size(), pattern, true); });
}

int MatchEach(lua_State* state) {
  return MatchWithin(state, [](auto text, auto pattern) { return WorstMatchSteps(text.size(), pattern, false); });
}

int Find(lua_State* state) {
  if (lua_toboolean(state, 4) == 0) return Match(state);
  return MatchWithin(state, [](auto text, auto words) {
    return static_cast<double>(text.size()) * static_cast<double>(words.size());
  });
}

// What a metatable answers may never end, or take long.
void CheckPlain(lua_State* state, int argument) {
  const bool isPlain = lua_getmetatable(state, argument) == 0;
  luaL_argcheck(state, isPlain, argument, "a table without a metatable expected");
}

// A replacement that is a text is read for each place that matches.
int Replace(lua_State* state) {
  if (lua_istable(state, 3)) CheckPlain(state, 3);
  if (lua_isstring(state, 3) != 0) {
    std::size_t length = 0;
    std::size_t size = 0;
    luaL_checklstring(state, 1, &length);
    lua_tolstring(state, 3, &size);
    const double turns = (static_cast<double>(length) + 1) * static_cast<double>(size);
    luaL_argcheck(state, turns <= static_cast<double>(kMostTurns), 3, "too long for so long a text");
  }
  return Match(state);
}

int WorkOnTable(lua_State* state) {
  CheckPlain(state, 1);
  return GoOn(state);
}

int MoveInTable(lua_State* state) {
  CheckPlain(state, 1);
  if (!lua_isnoneornil(state, 5)) CheckPlain(state, 5);
  const auto first = static_cast<lua_Unsigned>(luaL_checkinteger(state, 2));
  const lua_Integer last = luaL_checkinteger(state, 3);
  if (last >= static_cast<lua_Integer>(first)) {
    const lua_Unsigned turns = static_cast<lua_Unsigned>(last) - first;
    luaL_argcheck(state, turns <= static_cast<lua_Unsigned>(kMostTurns), 3, "too many");
  }
  return GoOn(state);
}

int IsLess(lua_State* state) {
  lua_pushboolean(state, lua_compare(state, 1, 2, LUA_OPLT));
  return 1;
}

// Calls a function for each comparison, so that the clock is looked at.
int Sort(lua_State* state) {
  if (lua_isnoneornil(state, 2)) {
    lua_settop(state, 1);
    lua_pushcfunction(state, IsLess);
  }
  return WorkOnTable(state);
}

// The variables to be closed of a routine that failed are closed where the clock is not looked at.
int CloseRoutine(lua_State* state) {
  lua_State* routine = lua_tothread(state, 1);
  const bool failed = routine != nullptr && lua_status(routine) > LUA_YIELD;
  luaL_argcheck(state, !failed, 1, "a routine that failed is not closed");
  return GoOn(state);
}

// As what coroutine.wrap gives, but a routine that failed is not closed. Keeps coroutine.resume and the routine.
int RunWrapped(lua_State* state) {
  lua_pushvalue(state, lua_upvalueindex(2));
  lua_insert(state, 1);
  const int count = GoOn(state);
  if (lua_toboolean(state, -count) != 0) return count - 1;
  if (lua_type(state, -1) == LUA_TSTRING) {
    luaL_where(state, 1);
    lua_insert(state, -2);
    lua_concat(state, 2);
  }
  return lua_error(state);
}

int Wrap(lua_State* state) {
  GoOn(state);
  lua_pushvalue(state, lua_upvalueindex(2));
  lua_getupvalue(state, -2, 1);
  lua_pushcclosure(state, RunWrapped, 2);
  return 1;
}

struct Guard {
  const char* function = nullptr;
  lua_CFunction guard = nullptr;  // null: the function is not there
  const char* helper = nullptr;   // a function of the library that the guard keeps too
};

constexpr std::array kBase{Guard{"load", LoadText}, Guard{"setmetatable", SetMetatable}, Guard{"dofile", nullptr},
                           Guard{"loadfile", nullptr}};
constexpr std::array kString{Guard{"find", Find},    Guard{"match", Match}, Guard{"gmatch", MatchEach},
                             Guard{"gsub", Replace}, Guard{"rep", Repeat},  Guard{"dump", nullptr}};
constexpr std::array kTable{Guard{"concat", WorkOnTable}, Guard{"insert", WorkOnTable}, Guard{"move", MoveInTable},
                            Guard{"remove", WorkOnTable}, Guard{"sort", Sort},          Guard{"unpack", WorkOnTable}};
constexpr std::array kCoroutine{Guard{"close", CloseRoutine}, Guard{"wrap", Wrap, "resume"}};

struct Library {
  const char* name;
  lua_CFunction open;
  std::span<const Guard> guards;
};

constexpr std::array kLibraries{
    Library{LUA_GNAME, luaopen_base, kBase},        Library{LUA_STRLIBNAME, luaopen_string, kString},
    Library{LUA_TABLIBNAME, luaopen_table, kTable}, Library{LUA_COLIBNAME, luaopen_coroutine, kCoroutine},
    Library{LUA_MATHLIBNAME, luaopen_math, {}},     Library{LUA_UTF8LIBNAME, luaopen_utf8, {}}};

// In the library on top of the stack.
void Put(lua_State* state, const Guard& guard) {
  if (guard.guard == nullptr) {
    lua_pushnil(state);
  } else {
    lua_getfield(state, -1, guard.function);
    if (guard.helper != nullptr) lua_getfield(state, -2, guard.helper);
    lua_pushcclosure(state, guard.guard, guard.helper != nullptr ? 2 : 1);
  }
  lua_setfield(state, -2, guard.function);
}

void OpenClock(lua_State* state) {
  luaL_requiref(state, LUA_OSLIBNAME, luaopen_os, 0);
  lua_newtable(state);
  for (const char* function : {"time", "clock", "date"}) {
    lua_getfield(state, -2, function);
    lua_setfield(state, -2, function);
  }
  lua_setglobal(state, LUA_OSLIBNAME);
  lua_pop(state, 1);
}

}  // namespace

void OpenClosedLibraries(lua_State* state) {
  for (const Library& library : kLibraries) {
    luaL_requiref(state, library.name, library.open, 1);
    for (const Guard& guard : library.guards) Put(state, guard);
    lua_pop(state, 1);
  }
  OpenClock(state);
}

}  // namespace qen::host
