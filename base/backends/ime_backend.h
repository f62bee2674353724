// The system's input method.
#pragma once

#include "engine/types.h"

namespace qen::base {

class IImeBackend {
 public:
  virtual ~IImeBackend() = default;
  virtual void Enable(bool enabled) = 0;  // called when the state changes, at most once a frame
  virtual String Composition() = 0;       // the text being composed; empty when there is none
};

}  // namespace qen::base
