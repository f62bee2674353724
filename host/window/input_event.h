// What the user does, one event at a time.
#pragma once

#include <cstdint>

#include "base/backends/window_backend.h"

namespace qen::host {

enum class InputKind : std::uint8_t {
  MouseMove,   //
  ButtonDown,  // value: button, 1 left, 2 right, 3 middle
  ButtonUp,    // value: button; comes exactly once after each ButtonDown
  Wheel,       // value: 120 towards the user, -120 away from the user; one event a notch
  Key,         // value: 8 backspace, 13 enter, 38 up, 40 down
  Text,        // value: a UTF-16 unit of typed text
  Special,     // value: SDL_Keycode of a key that makes no text and is none of those four, or of Alt+Enter
  Resize,      // the client area has a new size
  Exposed,     // what the window showed may be gone
  FocusLost,   // the keyboard went to another window
  Quit,
};

struct InputEvent {
  InputKind kind = InputKind::MouseMove;
  std::int32_t value = 0;
  std::uint16_t modifiers = 0;  // of Special: SDL_Keymod
  base::Point cursor;           // where the cursor was then: client pixels, outside the client area while dragging
};

}  // namespace qen::host
