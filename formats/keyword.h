// What a word of a definition file is.
#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>
#include <span>

#include "engine/types.h"

namespace qen::formats {

// What stands behind a word. Files are named from the root of the data.
enum class Value : std::uint8_t {
  Number,   // whole
  Flag,     // whole, 0 or 1
  Decimal,  // with a point
  Color,    // hexadecimal, bbggrr
  TextId,   // whole; -1 for none
  Text,     // one token
  Command,  // one token, word and argument with a colon between
  Face,     // a face name, and a block of font keywords
  Block,    // words up to the closing brace
  Scene,    // a file, as all that follow
  Animation,
  Sound,
  Picture,
  Page,
  Bag,
  Style,
  Language,
};

// The numbers that make sense. Readers store all others as well.
struct Range {
  std::int32_t least = std::numeric_limits<std::int32_t>::min();
  std::int32_t most = std::numeric_limits<std::int32_t>::max();
};

struct Keyword {
  StringView word;
  Value value;
  StringView widgets;    // type letters of those for which it does something; empty where no widget is meant
  StringView otherwise;  // what holds without the word, as one would write it; empty when that is nothing
  const char* help;      // what it sets, in one line
  Range range = {};
};

// The keyword of that word; null for another word. Words are compared exactly.
constexpr const Keyword* Find(std::span<const Keyword> keywords, StringView word) {
  const auto found = std::ranges::find(keywords, word, &Keyword::word);
  return found == keywords.end() ? nullptr : &*found;
}

// Whether a block follows, up to its closing brace.
constexpr bool OpensBlock(const Keyword& keyword) {
  return keyword.value == Value::Block || keyword.value == Value::Face;
}

// Whether a reader's rows, each with a member `word`, are the keywords of a format, all of them and in their order.
template <class Rows>
constexpr bool AreRowsOf(const Rows& rows, std::span<const Keyword> keywords) {
  return std::equal(rows.begin(), rows.end(), keywords.begin(), keywords.end(),
                    [](const auto& row, const Keyword& keyword) { return row.word == keyword.word; });
}

}  // namespace qen::formats
