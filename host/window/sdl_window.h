// The main window with its OpenGL context and its input.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "base/backends/window_backend.h"
#include "engine/rect.h"
#include "engine/types.h"
#include "host/window/input_event.h"

namespace qen::host {

struct WindowOptions {
  std::string title;
  std::int32_t width = 1280;  // of the client area
  std::int32_t height = 720;
  bool offscreen = false;  // no display is needed and nothing is shown
  bool fullscreen = false;
  bool vsync = true;
  bool debugContext = false;  // OpenGL reports what it is misused for
};

// Throws std::runtime_error when there is no display or no OpenGL 3.3. The context is current in the creating thread;
// it has no samples and no depth of its own, the renderer draws to a picture in memory first. One window at a time; the
// first one decides for all whether there is a display.
//
// Screen coordinates are pixels. The cursor is the one of the last event that was taken, so that each event is handled
// with the cursor where it was then; off screen it is where it was last set.
class SdlWindow final : public base::IWindowBackend {
 public:
  explicit SdlWindow(const WindowOptions& options);
  ~SdlWindow() override;

  base::Point ClientSize() override;
  base::Point ClientOrigin() override;
  base::Point Cursor() override;
  void SetCursor(base::Point screen) override;

  [[nodiscard]] std::optional<InputEvent> NextEvent();  // nothing when there is none just now

  // Waits for an event, so many milliseconds at most.
  void WaitForEvent(std::int32_t milliseconds);

  void SetTitle(const std::string& title);
  [[nodiscard]] std::string Title() const;

  void Swap();  // shows what was drawn; waits for the display as asked for
  void ToggleFullscreen();
  void Resize(std::int32_t width, std::int32_t height);  // reported as an event

  // The input method, for SdlIme.
  void EnableTextInput(bool enabled);
  [[nodiscard]] const String& Composition() const;
  void SetTextArea(const Rect& client);

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace qen::host
