// The log.
#pragma once

#include "engine/types.h"

namespace qen {

// Formats are printf-like: flags, width and precision; d i u x X c f g p %; "%s" takes a zero-terminated wide string
// (null prints "(null)").
class IOutput {
 public:
  virtual ~IOutput() = default;
  virtual void Print(const Char* format, ...) = 0;       // progress
  virtual void PrintError(const Char* format, ...) = 0;  // failures
};

}  // namespace qen
