// What was in a file before it is written anew.
#pragma once

#include "engine/types.h"

namespace qen::formats {

// The first free numbered name in the folder "bak" beside the file: "bak\menu.txt0", then "bak\menu.txt1". Paths of the
// platform calls. Empty for an empty path.
String NextBackup(StringView path);

// Copies the file, if there is one, there. The folders on the way are made. Failures are ignored.
void MakeBackup(StringView path);

}  // namespace qen::formats
