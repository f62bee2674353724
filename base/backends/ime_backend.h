// The system's input method.
#pragma once

#include "engine/rect.h"
#include "engine/types.h"

namespace qen::base {

class IImeBackend {
 public:
  virtual ~IImeBackend() = default;
  virtual void Enable(bool enabled) = 0;  // called when the state changes, at most once a frame
  virtual String Composition() = 0;       // the text being composed; empty when there is none
  virtual Rect Field() = 0;               // where it is typed into, client pixels; empty when that is not known
};

}  // namespace qen::base
