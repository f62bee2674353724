// Conversions between UTF-8 and UTF-16.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "engine/types.h"

namespace qen::base {

// Surrogates without a partner become U+FFFD.
QEN_API std::string ToUtf8(StringView text);

// Bytes that are no UTF-8 become U+FFFD, one for as many of them as a character could begin with.
QEN_API String ToUtf16(std::string_view text);

// Where a text is not well formed: only shortest forms are, no surrogates, nothing above U+10FFFF.
struct WrongByte {
  std::uint8_t byte = 0;
  std::uint32_t line = 1;
  std::uint32_t column = 1;  // in characters
};

QEN_API std::optional<WrongByte> FindWrongByte(std::string_view text);  // the first one

}  // namespace qen::base
