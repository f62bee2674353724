// Words in messages.
#pragma once

#include <span>
#include <string>

#include "engine/types.h"

namespace qen::analysis {

// In double quotes; what cannot be seen is escaped, and a long one cut off.
std::string Quoted(StringView word);

// How many letters must be put in, left out, changed or swapped with the next to make one word of the other; more than
// `most` is told as `most` + 1. The optimal string alignment distance.
std::size_t EditDistance(StringView a, StringView b, std::size_t most);

// Of the words, the nearest that is at most two edits (of a short word: one) away or differs in letter case alone;
// empty when there is none.
StringView Nearest(StringView word, std::span<const StringView> words);

// `, did you mean "nearest"?`; empty when nothing is near.
std::string Suggestion(StringView word, std::span<const StringView> words);

}  // namespace qen::analysis
