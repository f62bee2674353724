// Turns SDL's events into the program's own.
#pragma once

#include <SDL_events.h>

#include <cstdint>
#include <vector>

#include "engine/types.h"
#include "host/window/input_event.h"

namespace qen::host {

// Where the cursor is while it is outside the window, in client pixels: far from everything that is drawn.
inline constexpr base::Point kAway{-30000, -30000};

// Keeps what has to be known between events: the cursor, the buttons held, parts of a wheel notch, the text being
// composed.
//
// When the window loses the keyboard while buttons are held, the cursor moves away and the buttons come up there, so
// that nothing is clicked; what the system reports of those buttons later is ignored. When the cursor leaves the window
// with no button held it moves away too, so that nothing stays hovered. With a button held it is followed outside.
class InputTranslator {
 public:
  // Appends what the event means; nothing for events without meaning here.
  void Translate(const SDL_Event& event, std::vector<InputEvent>& out);

  void SetPixelScale(float pixelsPerUnit) { scale_ = pixelsPerUnit; }  // of SDL's mouse coordinates
  void SetCursor(base::Point client) { cursor_ = client; }
  void ClearComposition() { composition_.clear(); }
  [[nodiscard]] const String& GetComposition() const { return composition_; }

 private:
  using Events = std::vector<InputEvent>;

  void OnMotion(const SDL_MouseMotionEvent& event, Events& out);
  void OnButton(const SDL_MouseButtonEvent& event, Events& out);
  void OnWheel(const SDL_MouseWheelEvent& event, Events& out);
  void OnKeyDown(const SDL_Keysym& key, Events& out);
  void OnText(const char* utf8, Events& out);
  void OnWindow(const SDL_WindowEvent& event, Events& out);
  void MoveAway(Events& out);
  void ReleaseButtons(Events& out);
  void Add(Events& out, InputKind kind, std::int32_t value = 0, std::uint16_t modifiers = 0) const;

  float scale_ = 1.0F;
  base::Point cursor_ = kAway;
  std::uint32_t held_ = 0;  // a bit a button
  float notches_ = 0.0F;    // rolled towards the user and not yet reported
  String composition_;
};

}  // namespace qen::host
