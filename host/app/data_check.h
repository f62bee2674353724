// Looks over the files of a GUI before it is loaded anew.
#pragma once

#include <string>

#include "base/backends/file_backend.h"
#include "base/backends/scene_backend.h"
#include "engine/types.h"

namespace qen::host {

// What keeps the GUI that the description names from being loaded, in one line that names the file; empty when nothing
// does. Looks at definitions, scenes and animations.
std::string FindFault(const String& description, base::IFileBackend& files, base::ISceneBackend& scenes);

}  // namespace qen::host
