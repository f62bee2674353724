// Draws the items of a frame that have vertices of their own: texts, quads and lines.
#pragma once

#include <vector>

#include "base/draw_list.h"
#include "host/render/gl_program.h"
#include "host/render/texture_store.h"

namespace qen::host {

class VertexPainter {
 public:
  explicit VertexPainter(const TextureStore& textures);

  // The vertices of the whole frame.
  void SetVertices(const std::vector<base::DrawVertex>& vertices);

  // Draws one item with the matrix that takes its vertices to OpenGL's clip space.
  void Draw(const base::DrawItem& item, const Matrix4x4& transform) const;

 private:
  const TextureStore& textures_;
  GlProgram program_;
  GlVertexArray array_;
  GlBuffer vertices_;
  GLint transformAt_;
  GLint useAt_;
};

}  // namespace qen::host
