// Words that nobody reads where they stand: what they most likely mean.
#pragma once

#include <vector>

#include "engine/types.h"
#include "formats/reading.h"

namespace qen::analysis {

// Where a word is a keyword, as people call it; null for one that is none anywhere.
const char* HomeOf(StringView word);

// All words that may stand in a scope.
std::vector<StringView> WordsOf(formats::Scope scope);

// The one of the words that is at most one edit away, or differs in letter case alone; empty where several are.
StringView OnlyNearest(StringView word, const std::vector<StringView>& words);

}  // namespace qen::analysis
