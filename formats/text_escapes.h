// Escapes in the texts of languages.
#pragma once

#include "engine/types.h"

namespace qen::formats {

inline constexpr Char kEscape = u'\\';

// What the character behind an escape stands for: n for a line feed, t for a tab, any other for itself.
constexpr Char Escaped(Char c) { return c == u'n' ? u'\n' : c == u't' ? u'\t' : c; }

// The words that a text in a language file stands for. A backslash at the very end stays.
inline String Unescaped(StringView text) {
  String words;
  words.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool escape = text[i] == kEscape && i + 1 < text.size();
    words += escape ? Escaped(text[++i]) : text[i];
  }
  return words;
}

}  // namespace qen::formats
