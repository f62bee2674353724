// Looks over loaded pages for what an artist has most likely forgotten.
#pragma once

#include <functional>
#include <string>

#include "base/backends/file_backend.h"
#include "engine/gui.h"

namespace qen::host {

// Gives one line for each page without widgets, for each widget without a node that its kind needs,
// for each item block without a widget, for each file that ends before a value, and for each command that names a page
// that does not exist.
void ReportIncompletePages(IGui& gui, base::IFileBackend& files,
                           const std::function<void(const std::string& line)>& print);

// Why the first page without a scene has none, in one line that names the file; empty when all have one.
std::string FindEmptyPage(IGui& gui, base::IFileBackend& files);

// Gives one line for each style file of the description that is too short to be read.
void ReportShortStyles(const String& description, base::IFileBackend& files,
                       const std::function<void(const std::string& line)>& print);

}  // namespace qen::host
