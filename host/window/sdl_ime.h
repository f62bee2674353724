// The system's input method, through SDL.
#pragma once

#include "base/backends/ime_backend.h"
#include "host/window/sdl_window.h"

namespace qen::host {

// While it is enabled, typed text arrives as key events of the window.
class SdlIme final : public base::IImeBackend {
 public:
  explicit SdlIme(SdlWindow& window) : window_(window) {}

  void Enable(bool enabled) override { window_.EnableTextInput(enabled_ = enabled); }
  String Composition() override { return window_.Composition(); }
  Rect Field() override { return field_; }

  [[nodiscard]] bool IsEnabled() const { return enabled_; }

  // Where text is typed into, client pixels; empty when nowhere. The system puts its list of candidates beside it.
  void SetField(const Rect& field) {
    if (field == field_) return;
    field_ = field;
    window_.SetTextArea(field);
  }

 private:
  SdlWindow& window_;
  bool enabled_ = false;
  Rect field_;
};

}  // namespace qen::host
