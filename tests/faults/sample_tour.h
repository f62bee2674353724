// A tour of everything that the sample does.
#pragma once

#include <string>
#include <vector>

#include "tests/sample/sample_gui.h"

namespace qen::test {

// Shows every page, uses its widgets, changes the language, saves everything. The sample is loaded; any of it may be
// missing.
void PlayTour(SampleGui& sample);

// What the loaded sample is and shows, a line for its texts and one for each page.
std::vector<std::string> Describe(SampleGui& sample);

}  // namespace qen::test
