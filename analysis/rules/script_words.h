// What the game's script names.
#pragma once

#include <unordered_set>

#include "base/backends/file_backend.h"
#include "engine/types.h"

namespace qen::analysis {

class ScriptWords {
 public:
  ScriptWords() = default;

  // Reads the quoted strings of a Lua file; none where it cannot be read.
  ScriptWords(base::IFileBackend& files, const String& file);

  // Whether a string is that word.
  [[nodiscard]] bool Names(StringView word) const { return strings_.contains(String(word)); }

  // Whether a string, or the argument of a command in one, is the page's name or the short one that scripts use.
  [[nodiscard]] bool NamesPage(StringView name) const;

 private:
  void Add(String text);

  std::unordered_set<String> strings_;
  std::unordered_set<String> arguments_;
};

}  // namespace qen::analysis
