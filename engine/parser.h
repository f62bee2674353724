// Cuts wide text into tokens.
#pragma once

#include <array>
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
  [[nodiscard]] bool IsSeparator(Char c) const {
    return c < isSeparator_.size() ? isSeparator_[c] : separators_.find(c) != String::npos;
  }
  template <class IsStop>
  void ReadUntil(IsStop isStop);  // into the token; what stops is consumed

  std::basic_istream<Char>& input_;
  String separators_;
  std::array<bool, 128> isSeparator_{};  // those of ASCII
  String token_;                         // being read; kept for its storage
};

}  // namespace qen
