// Looks over loaded pages for what an artist has most likely forgotten.
#pragma once

#include <functional>
#include <string>

#include "engine/gui.h"

namespace qen::host {

// Gives one line for each page without widgets and for each widget without a node that its kind needs.
void ReportIncompletePages(IGui& gui, const std::function<void(const std::string& line)>& print);

}  // namespace qen::host
