// How definition files are replaced on disk.
#pragma once

#include "engine/types.h"

namespace qen {

// A name whose second character is ":" as it is, any other behind the engine's base path.
String ResolvePath(StringView name);

// Writes a text as UTF-16LE with its byte-order mark and ending zeros. False when it cannot be written; what was there
// before is then still there.
bool WriteDefinitionFile(const String& path, StringView text);

}  // namespace qen
