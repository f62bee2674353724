// How long Lua may take to match a pattern.
#pragma once

#include <cstddef>
#include <string_view>

namespace qen::host {

// No fewer steps than the worst text of that length takes; the quick ones of a pattern are counted like the slow ones.
// `anchors`: a "^" in front ties the match to the start of the text.
double WorstMatchSteps(std::size_t length, std::string_view pattern, bool anchors);

}  // namespace qen::host
