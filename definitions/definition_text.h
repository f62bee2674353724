// The text of a definition file, ready to be cut into tokens.
#pragma once

#include <cstdint>
#include <optional>
#include <sstream>

#include "definitions/gui_parser.h"
#include "engine/types.h"

namespace qen {

// The whole text of a file as it is, up to its first U+0000. Nothing when it cannot be read.
std::optional<String> LoadDefinitionText(const Char* file);

// The same for page, bag and style files: one leading byte-order mark is skipped. `tooShort` is set, and nothing
// returned, for a file of less than three bytes.
std::optional<String> LoadMarkedDefinitionText(const Char* file, bool& tooShort);

// One pass over a text.
class DefinitionPass {
 public:
  explicit DefinitionPass(const String& text) : stream_(text), parser(stream_) {}

 private:
  std::basic_stringstream<Char> stream_;

 public:
  CGUIParser parser;
};

}  // namespace qen
