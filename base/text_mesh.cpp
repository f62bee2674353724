#include "base/text_mesh.h"

#include <algorithm>
#include <cmath>
#include <span>

#include "base/fonts.h"

namespace qen::base {
namespace {

// Cuts a quad off above and below. False when nothing is left.
bool ClipVertically(GlyphQuad& quad, float top, float bottom) {
  if (!(quad.bottom > quad.top)) return false;
  const float texels = (quad.v1 - quad.v0) / (quad.bottom - quad.top);
  if (quad.top < top) {
    quad.v0 += (top - quad.top) * texels;
    quad.top = top;
  }
  if (quad.bottom > bottom) {
    quad.v1 -= (quad.bottom - bottom) * texels;
    quad.bottom = bottom;
  }
  return quad.bottom > quad.top;
}

// The position of the first line that reaches below `y`.
std::size_t LineAt(float y, float lineHeight, std::size_t count) {
  const float line = std::floor(y / lineHeight);
  if (!(line > 0.0F)) return 0;
  return line < static_cast<float>(count) ? static_cast<std::size_t>(line) : count;
}

float Indent(const TextLayout::Line& line, const TextWindow& window) {
  if (!(window.width > 0.0F)) return 0.0F;
  const float room = window.width - line.width;
  return window.centered ? room * 0.5F : line.rightToLeft ? room : 0.0F;
}

std::uint32_t NewContent() {
  static constinit std::uint32_t last = 0;
  return ++last == 0 ? ++last : last;
}

}  // namespace

// The last part, or a new one.
TextMesh::Part& TextMesh::PartOf(std::uint32_t texture) {
  Part& last = others.empty() ? first : others.back();
  if (last.texture == texture) return last;
  const Part next{texture, static_cast<std::uint32_t>(quads.size()), 0, NewContent()};
  return first.quadCount == 0 ? first = next : others.emplace_back(next);
}

void TextMesh::Build(const FontObject& font, const TextLayout& layout, const TextWindow& visible) {
  window = visible;
  first = {};
  others.clear();
  quads.clear();
  const auto height = static_cast<float>(font.GetMetric().tmHeight);
  const auto ascent = static_cast<float>(font.GetMetric().tmAscent);
  for (std::size_t i = LineAt(window.top, height, layout.lines.size()); i < layout.lines.size(); ++i) {
    const TextLayout::Line& line = layout.lines[i];
    const float cellTop = static_cast<float>(i) * height;
    if (cellTop >= window.bottom) break;
    const float indent = Indent(line, window);
    for (const Glyph& glyph : std::span(layout.glyphs).subspan(line.firstGlyph, line.glyphCount)) {
      if (glyph.texture == 0) continue;
      GlyphQuad quad{glyph.left + indent,
                     glyph.top + (cellTop + ascent),
                     glyph.right + indent,
                     glyph.bottom + (cellTop + ascent),
                     glyph.u0,
                     glyph.v0,
                     glyph.u1,
                     glyph.v1};
      if (!ClipVertically(quad, window.top, window.bottom)) continue;
      ++PartOf(glyph.texture).quadCount;
      quads.push_back(quad);
    }
  }
}

}  // namespace qen::base
