// Looks over loaded pages for what an artist has most likely forgotten.
#pragma once

#include <functional>
#include <string>

#include "base/backends/file_backend.h"
#include "engine/gui.h"

namespace qen::host {

// Gives one line for each page without widgets, for each widget without a node that its kind needs, for each item block
// of a definition without a widget, and for each command that names a page that does not exist.
void ReportIncompletePages(IGui& gui, base::IFileBackend& files,
                           const std::function<void(const std::string& line)>& print);

}  // namespace qen::host
