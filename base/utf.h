// Conversions between UTF-8 and UTF-16.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "engine/types.h"

namespace qen::base {

// Surrogates without a partner become U+FFFD.
QEN_API std::string ToUtf8(StringView text);

// Bytes that are no UTF-8 become U+FFFD, one each.
QEN_API String ToUtf16(std::string_view text);

// Well formed: shortest forms only, no surrogates, nothing above U+10FFFF.
QEN_API bool IsUtf8(std::span<const std::uint8_t> bytes);

}  // namespace qen::base
