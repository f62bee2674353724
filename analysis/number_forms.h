// The forms of numbers in definitions.
#pragma once

#include <cstdint>
#include <string>

#include "engine/types.h"
#include "formats/keyword.h"

namespace qen::analysis {

enum class NumberFault : std::uint8_t { None, Wrong, Outside };

struct NumberCheck {
  NumberFault fault = NumberFault::None;
  std::string message = {};
};

// Whether a keyword's value is a number of its form and range; nothing is wrong with what is no number at all.
NumberCheck CheckNumber(const formats::Keyword& keyword, StringView value);

// The same of the id behind `str`.
NumberCheck CheckTextNumber(StringView id);

}  // namespace qen::analysis
