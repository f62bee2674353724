// Draws texts, quads and lines.
#pragma once

#include "host/render/frame_plan.h"
#include "host/render/gl_program.h"
#include "host/render/glyph_buffer.h"
#include "host/render/texture_store.h"

namespace qen::host {

class VertexPainter {
 public:
  explicit VertexPainter(const TextureStore& textures);

  void Begin(const FramePlan& plan);  // the frame that follows

  // What takes the places of what follows to OpenGL's clip space.
  void SetTransform(const Matrix4x4& transform) const;

  void Draw(const Batch& batch) const;

 private:
  const TextureStore& textures_;
  GlProgram program_;
  GlVertexArray array_;
  GlBuffer vertices_;
  GlyphBuffer glyphs_;
  GLint transformAt_;
  GLint useAt_;
};

}  // namespace qen::host
