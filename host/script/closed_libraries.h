// What a script that came with the data has of Lua.
#pragma once

struct lua_State;

namespace qen::host {

// The base, string, table, math, utf8 and coroutine libraries, and of os what tells the time: nothing that reaches
// outside of the state, takes binary code, or works on and on where nobody can look at the clock.
void OpenClosedLibraries(lua_State* state);

}  // namespace qen::host
