// A definition's text, cut into tokens with their ranges.
#pragma once

#include <vector>

#include "engine/types.h"
#include "formats/source_text.h"

namespace qen::formats {

struct Token {
  Range16 range;     // with its quotes
  StringView value;  // without them; of the text that was cut
  bool isQuoted = false;
  bool isClosed = true;  // false: a quote that the text's end ends
};

// The tokens from `begin` to the text's end or its first U+0000, as the engine's parser gives them. Empty quotes are
// none.
std::vector<Token> Tokenize(StringView text, std::size_t begin = 0);

// The same, but as they were meant where a quote is not closed on its line and the next one opens another: it ends with
// its line, or before a brace. The positions of such tokens are added to `broken`. A brace that is glued to a word's
// beginning or end is a token of its own.
std::vector<Token> TokenizeMended(StringView text, std::size_t begin, std::vector<std::size_t>& broken);

}  // namespace qen::formats
