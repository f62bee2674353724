// UTF-8, a character at a time.
#pragma once

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <string>
#include <string_view>

#include "engine/types.h"

namespace qen::formats {

inline constexpr char32_t kReplacement = 0xFFFD;  // for what is no character

// What stands first in a text: a character, or bytes that no character has, as many as one could begin with.
struct Utf8Sequence {
  std::size_t length = 1;  // bytes
  char32_t character = kReplacement;
  bool isWrong = true;
};

namespace detail {

// The first bytes of well-formed sequences: how many follow, and which the second may be. From the Unicode Standard,
// table 3-7.
struct Lead {
  std::uint8_t first, last;
  std::size_t following;
  std::uint8_t low, high;
};
inline constexpr Lead kLeads[] = {
    {0x00, 0x7F, 0, 0x80, 0xBF}, {0xC2, 0xDF, 1, 0x80, 0xBF}, {0xE0, 0xE0, 2, 0xA0, 0xBF},
    {0xE1, 0xEC, 2, 0x80, 0xBF}, {0xED, 0xED, 2, 0x80, 0x9F}, {0xEE, 0xEF, 2, 0x80, 0xBF},
    {0xF0, 0xF0, 3, 0x90, 0xBF}, {0xF1, 0xF3, 3, 0x80, 0xBF}, {0xF4, 0xF4, 3, 0x80, 0x8F},
};

}  // namespace detail

// The text is not empty.
inline Utf8Sequence DecodeUtf8(std::string_view text) {
  const auto byte = [&text](std::size_t i) { return static_cast<std::uint8_t>(text[i]); };
  const std::uint8_t first = byte(0);
  const auto* lead =
      std::ranges::find_if(detail::kLeads, [first](const auto& l) { return first >= l.first && first <= l.last; });
  if (lead == std::end(detail::kLeads)) return {};
  char32_t character = lead->following == 0 ? first : first & (0x3FU >> lead->following);
  for (std::size_t i = 1; i <= lead->following; ++i) {
    const std::uint8_t low = i == 1 ? lead->low : 0x80;
    const std::uint8_t high = i == 1 ? lead->high : 0xBF;
    if (i >= text.size() || byte(i) < low || byte(i) > high) return {.length = i};
    character = (character << 6) | (byte(i) & 0x3FU);
  }
  return {lead->following + 1, character, false};
}

inline void AppendUtf8(std::string& out, char32_t c) {
  const auto tail = [&out, c](unsigned shift) { out.push_back(static_cast<char>(0x80 | ((c >> shift) & 0x3F))); };
  if (c < 0x80) {
    out.push_back(static_cast<char>(c));
  } else if (c < 0x800) {
    out.push_back(static_cast<char>(0xC0 | (c >> 6)));
    tail(0);
  } else if (c < 0x10000) {
    out.push_back(static_cast<char>(0xE0 | (c >> 12)));
    tail(6);
    tail(0);
  } else {
    out.push_back(static_cast<char>(0xF0 | (c >> 18)));
    tail(12);
    tail(6);
    tail(0);
  }
}

inline void AppendUtf16(String& out, char32_t c) {
  if (c < 0x10000) {
    out.push_back(static_cast<Char>(c));
    return;
  }
  out.push_back(static_cast<Char>(0xD800 + ((c - 0x10000) >> 10)));
  out.push_back(static_cast<Char>(0xDC00 + ((c - 0x10000) & 0x3FF)));
}

// The character whose first unit is at `i`, which goes to the next one. A surrogate without a partner is U+FFFD.
inline char32_t TakeCharacter(StringView text, std::size_t& i) {
  const auto isHigh = [](char32_t c) { return c >= 0xD800 && c < 0xDC00; };
  const auto isLow = [](char32_t c) { return c >= 0xDC00 && c < 0xE000; };
  const char32_t c = text[i++];
  if (isHigh(c) && i < text.size() && isLow(text[i])) return 0x10000 + ((c - 0xD800) << 10) + (text[i++] - 0xDC00U);
  return isHigh(c) || isLow(c) ? kReplacement : c;
}

inline void AppendUtf8(std::string& out, StringView text) {
  for (std::size_t i = 0; i < text.size();) AppendUtf8(out, TakeCharacter(text, i));
}

}  // namespace qen::formats
