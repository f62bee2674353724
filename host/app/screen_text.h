// Words of the program itself, over the GUI.
#pragma once

#include <cstdint>
#include <span>

#include "engine/material.h"
#include "engine/types.h"

namespace qen {
class Font;
}

namespace qen::host {

// While it lives an engine must be there.
class ScreenText {
 public:
  ScreenText();
  ~ScreenText();
  ScreenText(const ScreenText&) = delete;
  ScreenText& operator=(const ScreenText&) = delete;

  // Lines on a dark plate in the upper left corner, `top` pixels below the edge; long ones are wrapped.
  void Draw(std::span<const String> text, std::int32_t top, std::int32_t screenWidth);

 private:
  Font* font_;
  MaterialParams plate_;
};

}  // namespace qen::host
