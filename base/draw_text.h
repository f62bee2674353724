// Puts laid out texts into the frame.
#pragma once

#include <cstdint>
#include <limits>

#include "base/draw_list.h"
#include "base/text_layout.h"
#include "engine/vec.h"

namespace qen::base {

class FontObject;
class RenderService;

struct TextPlacement {
  Vec3 origin;  // the upper left corner of the first line's cell
  Vec3 right;   // a font pixel to the right, and down
  Vec3 down;
  float width = 0.0F;     // font pixels that the lines are set in; 0: all begin at the left
  bool centered = false;  // else they begin at the side that they are read from
  float top = -std::numeric_limits<float>::infinity();  // what is visible, in font pixels down from the origin
  float bottom = std::numeric_limits<float>::infinity();
};

// `look` says how to draw; its texture is set from the glyphs'.
void DrawLayout(RenderService& frame, const FontObject& font, const TextLayout& layout, const TextPlacement& placement,
                DrawItem look, std::uint32_t argb);

}  // namespace qen::base
