// A picture in memory.
#pragma once

#include <cstdint>
#include <vector>

namespace qen::base {

struct Image {
  std::int32_t width = 0;  // pixels
  std::int32_t height = 0;
  std::vector<std::uint8_t> rgba;  // width x height x 4, rows from the top, not premultiplied
  bool isLinear = false;           // the numbers are those meant, not colours in sRGB
};

}  // namespace qen::base
