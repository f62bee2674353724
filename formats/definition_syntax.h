// What all definition files have in common.
#pragma once

#include <cstdint>

#include "engine/types.h"

namespace qen::formats {

inline constexpr const Char* kSeparators = u" \t\n\r;";  // between tokens
inline constexpr StringView kClose = u"}";               // ends a block

inline constexpr Char kByteOrderMark = 0xFEFF;     // skipped in page, bag and style files
inline constexpr std::uint32_t kShortestFile = 3;  // bytes of UTF-16; shorter page, bag and style files are refused

}  // namespace qen::formats
