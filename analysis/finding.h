// What the checker has found.
#pragma once

#include <cstdint>
#include <string>
#include <tuple>
#include <vector>

#include "analysis/rules.h"
#include "engine/types.h"

namespace qen::analysis {

// From 1; columns count 16-bit units.
struct Place {
  std::uint32_t line = 1;
  std::uint32_t column = 1;

  friend bool operator==(const Place&, const Place&) = default;
  friend bool operator<(const Place& a, const Place& b) {
    return std::tie(a.line, a.column) < std::tie(b.line, b.column);
  }
};

struct Span {
  Place begin;
  Place end;  // behind the last character

  friend bool operator==(const Span&, const Span&) = default;
  friend bool operator<(const Span& a, const Span& b) { return std::tie(a.begin, a.end) < std::tie(b.begin, b.end); }
};

// A part of the file that is replaced.
struct Replacement {
  Span span;
  std::string text;
};

// Texts are UTF-8.
struct Finding {
  std::string file;  // as the definitions name it
  Span span = {};
  Severity severity = Severity::Error;
  Rule rule = Rule::UnknownWord;
  std::string message;                // one line
  std::string line = {};              // of the file, where the span begins; empty for one that is very long
  std::vector<Replacement> fix = {};  // of the file; empty where none is certain
  bool keepsFromLoading = false;
};

}  // namespace qen::analysis
