// The functions that a loaded DLL calls, taken from under it.
#pragma once

#include <windows.h>

namespace qen::test {

// From now on the DLL calls `replacement` where it called the function of that name. Returns what it called before;
// null when it imports no such function.
void* ReplaceImport(HMODULE library, const char* function, void* replacement);

}  // namespace qen::test
