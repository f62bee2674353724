// Conversions of numbers that definitions may have made meaningless.
#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>

namespace qen {

// Truncated toward zero; saturates, and gives 0 for what is not a number.
template <class Integer>
Integer Truncate(double value) {
  if (!(value == value)) return 0;
  constexpr auto kLow = static_cast<double>(std::numeric_limits<Integer>::min());
  constexpr auto kHigh = static_cast<double>(std::numeric_limits<Integer>::max());
  return static_cast<Integer>(std::clamp(value, kLow, kHigh));
}

}  // namespace qen
