// Puts laid out texts into the frame.
#pragma once

#include <cstdint>
#include <limits>
#include <vector>

#include "base/draw_list.h"
#include "base/text_layout.h"
#include "engine/vec.h"

namespace qen::base {

class FontObject;
class RenderService;
class TextCache;
struct CachedText;

struct TextPlacement {
  Vec3 origin;  // the upper left corner of the first line's cell
  Vec3 right;   // a font pixel to the right, and down
  Vec3 down;
  float width = 0.0F;     // font pixels that the lines are set in; 0: all begin at the left
  bool centered = false;  // else they begin at the side that they are read from
  float top = -std::numeric_limits<float>::infinity();  // what is visible, in font pixels down from the origin
  float bottom = std::numeric_limits<float>::infinity();

  friend bool operator==(const TextPlacement&, const TextPlacement&) = default;
};

// The visible glyphs of a text as white triangles.
struct TextMesh {
  struct Part {
    std::uint32_t texture = 0;
    std::uint32_t firstVertex = 0;
    std::uint32_t vertexCount = 0;
  };

  void Build(const FontObject& font, const TextLayout& layout, const TextPlacement& place);

  TextPlacement placement;
  std::vector<Part> parts;
  std::vector<DrawVertex> vertices;
};

// `look` says how to draw; its texture is set from the glyphs'.
void DrawCached(RenderService& frame, TextCache& cache, CachedText& text, const FontObject& font,
                const TextPlacement& placement, DrawItem look, std::uint32_t argb);

}  // namespace qen::base
