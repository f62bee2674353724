#include "base/draw_list.h"

namespace qen::base {
namespace {

DrawVertex CornerOf(const DrawItem& item, float x, float y, float u, float v) {
  const GlyphRun& run = item.glyphs;
  const bool flat = item.kind == DrawKind::Text2D;
  const Vec3 place = flat ? Vec3{x, y, 0.0F} : Vec3{x * run.pixel, 0.0F, y * -run.pixel};
  return {run.origin + place, u, v, run.argb};
}

}  // namespace

void DrawList::SpellOutTexts() {
  for (DrawItem& item : items) {
    if (item.kind != DrawKind::Text2D && item.kind != DrawKind::Text3D) continue;
    item.firstVertex = static_cast<std::uint32_t>(vertices.size());
    for (std::uint32_t i = 0; i < item.glyphs.count; ++i) {
      const GlyphQuad& quad = item.glyphs.quads[i];
      const DrawVertex leftTop = CornerOf(item, quad.left, quad.top, quad.u0, quad.v0);
      const DrawVertex rightTop = CornerOf(item, quad.right, quad.top, quad.u1, quad.v0);
      const DrawVertex leftBottom = CornerOf(item, quad.left, quad.bottom, quad.u0, quad.v1);
      const DrawVertex rightBottom = CornerOf(item, quad.right, quad.bottom, quad.u1, quad.v1);
      vertices.insert(vertices.end(), {leftTop, rightTop, leftBottom, rightTop, rightBottom, leftBottom});
    }
    item.vertexCount = static_cast<std::uint32_t>(vertices.size()) - item.firstVertex;
    item.kind = item.kind == DrawKind::Text2D ? DrawKind::Triangles2D : DrawKind::Triangles3D;
    item.glyphs = {};
  }
}

}  // namespace qen::base
