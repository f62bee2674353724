// The source line of a finding, and marks below what it is about.
#pragma once

#include <string>

#include "analysis/finding.h"

namespace qen::analysis {

struct Excerpt {
  std::string line;    // cut around the place where it is long
  std::string indent;  // of the marks; has the line's tabs
  std::string carets;  // one a column, at least one
};

Excerpt ExcerptOf(const Finding& finding);

}  // namespace qen::analysis
