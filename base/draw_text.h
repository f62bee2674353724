// Puts laid out texts into the frame.
#pragma once

#include <cstdint>
#include <limits>
#include <vector>

#include "base/draw_list.h"
#include "base/text_layout.h"

namespace qen::base {

class FontObject;
class RenderService;
class TextCache;
struct CachedText;

// How a layout is set and what of it is visible, in font pixels.
struct TextWindow {
  float width = 0.0F;                                   // that the lines are set in; 0: all begin at the left
  bool centered = false;                                // else they begin at the side that they are read from
  float top = -std::numeric_limits<float>::infinity();  // what is visible, down from where the text begins
  float bottom = std::numeric_limits<float>::infinity();

  friend bool operator==(const TextWindow&, const TextWindow&) = default;
};

// The visible glyphs of a text. Their place is the upper left corner of the first line's cell.
struct TextMesh {
  struct Part {
    std::uint32_t texture = 0;
    std::uint32_t firstQuad = 0;
    std::uint32_t quadCount = 0;
    std::uint32_t content = 0;  // as GlyphRun's
  };

  void Build(const FontObject& font, const TextLayout& layout, const TextWindow& visible);

  TextWindow window;
  std::uint32_t lastShown = 0;  // the number of a frame, from 2 on
  std::vector<Part> parts;
  std::vector<GlyphQuad> quads;
};

// `look` says how and where to draw; its texture and its glyphs' quads are set here.
void DrawCached(RenderService& frame, TextCache& cache, CachedText& text, const FontObject& font,
                const TextWindow& window, DrawItem& look);

}  // namespace qen::base
