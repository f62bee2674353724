// What the checker has found, for people and for programs.
#pragma once

#include <string>

#include "analysis/check.h"

namespace qen::analysis {

// `pages\menu.txt:14:2: error: unknown word "toltip" [unknown-word]`, without an end of line.
std::string PrintLine(const Finding& finding);

// A line a finding, the source line below it, and how many there are of each kind.
std::string PrintText(const Report& report, bool colored);

std::string PrintJson(const Report& report);

// SARIF 2.1.0.
std::string PrintSarif(const Report& report, const std::string& version);

}  // namespace qen::analysis
