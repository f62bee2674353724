// Where files come from.
#pragma once

#include <cstdint>
#include <vector>

#include "engine/types.h"

namespace qen::base {

class IFileBackend {
 public:
  virtual ~IFileBackend() = default;

  // The whole file. The name is relative to the root of the data; letter case does not matter and backslash is slash.
  // False when there is no such file or it cannot be read.
  virtual bool Read(StringView name, std::vector<std::uint8_t>& bytes) = 0;
};

}  // namespace qen::base
