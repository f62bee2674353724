// What all definition files have in common.
#pragma once

#include <algorithm>
#include <cstdint>
#include <span>

#include "engine/types.h"

namespace qen::formats {

inline constexpr const Char* kSeparators = u" \t\n\r;";  // between tokens
inline constexpr Char kQuote = u'"';                     // around a token with separators
inline constexpr StringView kOpen = u"{";                // a habit: no reader asks for it
inline constexpr StringView kClose = u"}";               // ends a block

inline constexpr Char kByteOrderMark = 0xFEFF;     // skipped in page, bag and style files
inline constexpr std::uint32_t kShortestFile = 3;  // bytes of UTF-16; shorter page, bag and style files are refused

// Every other file is read as UTF-8. A file in UTF-16 has zero bytes wherever it has blanks or Latin letters; one in
// UTF-8 has none.
inline bool IsReadAsUtf16(std::span<const std::uint8_t> bytes) {
  const bool marked = bytes.size() >= 2 && bytes[0] == 0xFF && bytes[1] == 0xFE;
  return marked || std::ranges::find(bytes, std::uint8_t{0}) != bytes.end();
}

}  // namespace qen::formats
