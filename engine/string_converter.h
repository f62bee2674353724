// Conversions between texts and numbers, splitting and letter case. No function knows a locale.
#pragma once

#include <cstdint>
#include <vector>

#include "engine/types.h"

namespace qen {

// The parsers read the longest valid prefix (leading blanks skipped), give 0 without one, and saturate.
class QEN_API StringConverter {
 public:
  static std::int32_t ParseInt(StringView text);
  static float ParseFloat(StringView text);
  static std::uint32_t ParseHex(StringView text);  // an optional 0x is skipped
  static String ToString(std::int32_t value);
};

// The pieces between the characters of `separators`, empty ones included; at most `maxSplits` cuts, 0 for no limit.
// An empty text has no pieces.
QEN_API std::vector<String> SplitString(StringView text, StringView separators, std::uint32_t maxSplits);

// Simple (one to one) lower case for the scripts that have letter case.
QEN_API String ttolowercase(StringView text);

}  // namespace qen
