// The input-method service.
#pragma once

namespace qen {

class IIMEQUENRIN {
 public:
  virtual ~IIMEQUENRIN() = default;
  // Called many times a frame; only the last state before a frame is drawn counts.
  virtual void Enable(bool enabled) = 0;
  virtual void Draw() = 0;  // draws the text being composed, if any
};

}  // namespace qen
