// Where lines of text may be broken.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "engine/types.h"

namespace qen::base {

// The position of the tab stop behind `pen`.
float NextTabStop(float pen, float tabWidth);

// Cuts a text without line feeds into lines no wider than `width`: behind blanks, which hang over the end, and between
// East Asian characters; words that are too long are cut between clusters. `advances` has a value for each unit, 0
// inside of a cluster. The lines' ends are without the blanks that hang. There is always at least one line.
// True when a word was cut.
bool BreakLines(StringView text, std::span<const float> advances, float width, float tabWidth,
                std::vector<StringView>& lines);

}  // namespace qen::base
