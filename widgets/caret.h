// The blinking of the text caret.
#pragma once

namespace qen {

// Runs through [0, 1) once a second, moved on by every update of the GUI. The caret shows during the first half.
inline double caretPhase = 0.0;

inline bool IsCaretShown() { return caretPhase < 0.5; }

}  // namespace qen
