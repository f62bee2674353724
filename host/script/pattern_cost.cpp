#include "host/script/pattern_cost.h"

#include <algorithm>

namespace qen::host {
namespace {

struct Choices {
  int free = 0;      // parts of the pattern that end anywhere in the text
  int optional = 0;  // those that are there or not
};

// Behind the set that begins at `start`.
std::size_t EndOfSet(std::string_view pattern, std::size_t start) {
  std::size_t at = start + 1;
  if (at < pattern.size() && pattern[at] == '^') ++at;
  do {  // a bracket that comes first is one of the set
    at += at < pattern.size() && pattern[at] == '%' ? 2U : 1U;
  } while (at < pattern.size() && pattern[at] != ']');
  return std::min(at + 1, pattern.size());
}

Choices CountChoices(std::string_view pattern) {
  constexpr std::string_view kAnyNumber = "*+-";
  constexpr std::string_view kLooksAhead = "b0123456789";  // behind a percent sign: brackets and what was captured
  Choices choices;
  for (std::size_t at = 0; at < pattern.size();) {
    const char unit = pattern[at];
    if (unit == '[') {
      at = EndOfSet(pattern, at);
    } else if (unit == '%') {
      const char next = at + 1 < pattern.size() ? pattern[at + 1] : '\0';
      if (kLooksAhead.find(next) != std::string_view::npos) ++choices.free;
      at += next == 'b' ? 4U : 2U;  // the two brackets are no part of their own
    } else {
      if (kAnyNumber.find(unit) != std::string_view::npos) ++choices.free;
      if (unit == '?') ++choices.optional;
      ++at;
    }
  }
  return choices;
}

}  // namespace

// The ways to part the text among what may end anywhere.
double WorstMatchSteps(std::size_t length, std::string_view pattern, bool anchors) {
  const bool isAnchored = anchors && pattern.starts_with('^');
  const Choices choices = CountChoices(pattern);
  const int ends = choices.free + (isAnchored ? 0 : 1);
  auto steps = static_cast<double>(pattern.size());
  for (int i = 1; i <= ends; ++i) steps *= (static_cast<double>(length) + i) / i;
  for (int i = 0; i < choices.optional; ++i) steps *= 2.0;
  return steps;
}

}  // namespace qen::host
