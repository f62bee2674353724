// The system's input method, through SDL.
#pragma once

#include "base/backends/ime_backend.h"
#include "host/window/sdl_window.h"

namespace qen::host {

// While it is enabled, typed text arrives as key events of the window.
class SdlIme final : public base::IImeBackend {
 public:
  explicit SdlIme(SdlWindow& window) : window_(window) {}

  void Enable(bool enabled) override { window_.EnableTextInput(enabled); }
  String Composition() override { return window_.Composition(); }

 private:
  SdlWindow& window_;
};

}  // namespace qen::host
