// A rectangle of 16-bit coordinates, as texts are measured in. Values beyond 16 bits saturate.
#pragma once

#include <cstdint>

namespace qen {

struct Rect {
  std::int16_t left = 0;
  std::int16_t top = 0;
  std::int16_t right = 0;
  std::int16_t bottom = 0;

  friend bool operator==(const Rect&, const Rect&) = default;
};

}  // namespace qen
