// What is asked of a check of definitions.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace qen::host {

enum class FindingFormat : std::uint8_t { Text, Json, Sarif };

struct CheckOptions {
  bool isWanted = false;  // nothing else is done then
  FindingFormat format = FindingFormat::Text;
  bool strict = false;  // warnings count as errors
  bool fix = false;
  std::vector<std::string> languages;  // empty for all
  std::vector<std::string> rules;      // "ID=LEVEL"
};

}  // namespace qen::host
