#include "base/draw_text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>

#include "base/fonts.h"
#include "base/render.h"
#include "base/text_cache.h"

namespace qen::base {
namespace {

// Cuts a quad off above and below. False when nothing is left.
bool ClipVertically(Glyph& quad, float top, float bottom) {
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

std::array<DrawVertex, 6> Triangles(const Glyph& quad, const TextPlacement& placement) {
  const auto vertex = [&](float x, float y, float u, float v) {
    return DrawVertex{placement.origin + placement.right * x + placement.down * y, u, v};
  };
  const DrawVertex leftTop = vertex(quad.left, quad.top, quad.u0, quad.v0);
  const DrawVertex rightTop = vertex(quad.right, quad.top, quad.u1, quad.v0);
  const DrawVertex leftBottom = vertex(quad.left, quad.bottom, quad.u0, quad.v1);
  const DrawVertex rightBottom = vertex(quad.right, quad.bottom, quad.u1, quad.v1);
  return {leftTop, rightTop, leftBottom, rightTop, rightBottom, leftBottom};
}

// The position of the first line that reaches below `y`.
std::size_t LineAt(float y, float lineHeight, std::size_t count) {
  const float line = std::floor(y / lineHeight);
  if (!(line > 0.0F)) return 0;
  return line < static_cast<float>(count) ? static_cast<std::size_t>(line) : count;
}

float Indent(const TextLayout::Line& line, const TextPlacement& placement) {
  if (!(placement.width > 0.0F)) return 0.0F;
  const float room = placement.width - line.width;
  return placement.centered ? room * 0.5F : line.rightToLeft ? room : 0.0F;
}

}  // namespace

void TextMesh::Build(const FontObject& font, const TextLayout& layout, const TextPlacement& place) {
  placement = place;
  parts.clear();
  vertices.clear();
  const auto height = static_cast<float>(font.GetMetric().tmHeight);
  const auto ascent = static_cast<float>(font.GetMetric().tmAscent);
  for (std::size_t i = LineAt(place.top, height, layout.lines.size()); i < layout.lines.size(); ++i) {
    const TextLayout::Line& line = layout.lines[i];
    const float cellTop = static_cast<float>(i) * height;
    if (cellTop >= place.bottom) break;
    const float indent = Indent(line, place);
    for (Glyph glyph : std::span(layout.glyphs).subspan(line.firstGlyph, line.glyphCount)) {
      if (glyph.texture == 0) continue;
      glyph.left += indent;
      glyph.right += indent;
      glyph.top += cellTop + ascent;
      glyph.bottom += cellTop + ascent;
      if (!ClipVertically(glyph, place.top, place.bottom)) continue;
      if (parts.empty() || parts.back().texture != glyph.texture) {
        parts.push_back({glyph.texture, static_cast<std::uint32_t>(vertices.size()), 0});
      }
      const std::array<DrawVertex, 6> corners = Triangles(glyph, place);
      vertices.insert(vertices.end(), corners.begin(), corners.end());
      parts.back().vertexCount += static_cast<std::uint32_t>(corners.size());
    }
  }
}

void DrawCached(RenderService& frame, TextCache& cache, CachedText& text, const FontObject& font,
                const TextPlacement& placement, DrawItem look, std::uint32_t argb) {
  const TextMesh* shared = cache.Show(text, font, placement);
  if (shared == nullptr) cache.scratchMesh.Build(font, text.layout, placement);
  const TextMesh& mesh = shared != nullptr ? *shared : cache.scratchMesh;
  for (const TextMesh::Part& part : mesh.parts) {
    look.texture = part.texture;
    const auto vertices = std::span(mesh.vertices).subspan(part.firstVertex, part.vertexCount);
    shared != nullptr ? frame.AddShared(look, vertices, argb) : frame.AddCopies(look, vertices, argb);
  }
}

}  // namespace qen::base
