// Where scripts may write.
#pragma once

#include <filesystem>
#include <lua.hpp>

#include "engine/types.h"

namespace qen::host {

// The file that the argument at `index` names to `function`, for scripts of trust as they name it. Other ones name
// files in the folder of the data; where theirs would lie elsewhere, links included, std::runtime_error tells so.
std::filesystem::path WritablePicture(lua_State* state, int index, const char* function);
String WritableDefinition(lua_State* state, int index, const char* function);  // relative to the data

// Throws std::runtime_error for scripts that are not trusted.
void NeedTrust(lua_State* state, const char* function);

}  // namespace qen::host
