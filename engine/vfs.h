// Whole-file access to the game's data.
#pragma once

#include <cstdint>

#include "engine/types.h"

namespace qen {

class IVFS {
 public:
  virtual ~IVFS() = default;

  // Reads a text file. Names match without regard to letter case; slash and backslash are the same. UTF-8 text is
  // turned into UTF-16; bytes that are neither become U+FFFD, and the log says where the first is. On success `buffer`
  // is a new array, ended with U+0000, that the caller deletes with delete[], and `size` its text in bytes (without the
  // end). On failure returns false and leaves both unchanged.
  virtual bool ReadFile(const Char* name, Char*& buffer, std::uint32_t& size) = 0;
};

}  // namespace qen
