// Cuts wide text into tokens.
#pragma once

#include <istream>

#include "engine/types.h"

namespace qen {

class QEN_API Parser {
 public:
  // Reads from `input`, which must outlive the parser. `separators` is the set of characters between tokens.
  Parser(std::basic_istream<Char>& input, const Char* separators);
  ~Parser();
  Parser(const Parser&) = delete;
  Parser& operator=(const Parser&) = delete;

  // The next token, empty at the end of the text. A double-quoted run is one token, without its quotes and with its
  // separators. `fold` turns letters into lower case.
  String nextlow(bool fold);

 private:
  std::basic_istream<Char>& input_;
  String separators_;
};

}  // namespace qen
