// Texts cut into lines and shaped.
#pragma once

#include <cstdint>
#include <vector>

#include "base/backends/font_backend.h"
#include "engine/types.h"

namespace qen::base {

class FontObject;

// In font pixels. Glyphs are relative to the beginning of their line's base line; lines follow each other downwards,
// one cell of the font each.
struct TextLayout {
  struct Line {
    std::uint32_t firstGlyph = 0;
    std::uint32_t glyphCount = 0;
    float width = 0.0F;
    bool rightToLeft = false;
  };

  std::vector<Line> lines;
  std::vector<Glyph> glyphs;
  float width = 0.0F;     // of the widest line
  bool cutsWord = false;  // one is wider than the lines may be
};

struct LayoutOptions {
  GlyphStyle style = GlyphStyle::Bitmap;
  bool singleLine = false;  // line feeds are blanks
  bool expandTabs = false;  // else tabs are blanks
  float wrapWidth = 0.0F;   // 0: lines are as long as they are
  bool withGlyphs = true;   // else lines are only measured

  friend bool operator==(const LayoutOptions&, const LayoutOptions&) = default;
};

TextLayout LayOut(const FontObject& font, StringView text, const LayoutOptions& options);

// Tab stops are `tabWidth` font pixels apart.
QEN_API TextLayout LayOut(IFontFace& face, float tabWidth, StringView text, const LayoutOptions& options);

}  // namespace qen::base
