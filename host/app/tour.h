// Goes through a GUI by itself and takes pictures.
#pragma once

#include <filesystem>

#include "host/app/stage.h"

namespace qen::host {

// The first page while it enters and when it is there, each of its buttons under the cursor, one held, then every other
// page, reached by a click where a button of the first page leads there. The pictures are numbered, their names
// printed. The stage has a manual clock. Throws std::runtime_error, naming it, for a picture that cannot be written.
void PlayTour(Stage& stage, const std::filesystem::path& folder);

}  // namespace qen::host
