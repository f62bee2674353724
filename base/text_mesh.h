// The glyphs of a laid out text that are seen.
#pragma once

#include <cstdint>
#include <limits>
#include <vector>

#include "base/draw_list.h"
#include "base/text_layout.h"

namespace qen::base {

class FontObject;

// How a layout is set and what of it is visible, in font pixels.
struct TextWindow {
  float width = 0.0F;                                   // that the lines are set in; 0: all begin at the left
  bool centered = false;                                // else they begin at the side that they are read from
  float top = -std::numeric_limits<float>::infinity();  // what is visible, down from where the text begins
  float bottom = std::numeric_limits<float>::infinity();

  friend bool operator==(const TextWindow&, const TextWindow&) = default;
};

// The text begins at the upper left corner of its first line's cell.
struct TextMesh {
  struct Part {
    std::uint32_t texture = 0;
    std::uint32_t firstQuad = 0;
    std::uint32_t quadCount = 0;
    std::uint32_t content = 0;  // as GlyphRun's
  };

  void Build(const FontObject& font, const TextLayout& layout, const TextWindow& visible);

  // Calls `draw` with each part.
  template <class Draw>
  void ForEachPart(const Draw& draw) const {
    if (first.quadCount > 0) draw(first);
    for (const Part& part : others) draw(part);
  }

  TextWindow window;
  std::uint32_t lastShown = 0;  // the number of a frame, from 2 on
  Part first;                   // most texts have one
  std::vector<Part> others;
  std::vector<GlyphQuad> quads;

 private:
  Part& PartOf(std::uint32_t texture);
};

}  // namespace qen::base
