#include "host/render/vertex_painter.h"

#include <cstddef>

#include "host/render/paint_shader.h"

namespace qen::host {
namespace {

void DescribePaintedVertices() {
  constexpr GLsizei kStride = sizeof(base::DrawVertex);
  glVertexAttribPointer(0, 3, GL_FLOAT, GL_FALSE, kStride, BufferOffset(offsetof(base::DrawVertex, position)));
  glVertexAttribPointer(1, 2, GL_FLOAT, GL_FALSE, kStride, BufferOffset(offsetof(base::DrawVertex, u)));
  // 0xAARRGGBB lies as blue, green, red, alpha in memory.
  glVertexAttribPointer(2, GL_BGRA, GL_UNSIGNED_BYTE, GL_TRUE, kStride, BufferOffset(offsetof(base::DrawVertex, argb)));
  for (GLuint i = 0; i < 3; ++i) glEnableVertexAttribArray(i);
}

}  // namespace

VertexPainter::VertexPainter(const TextureStore& textures)
    : textures_(textures),
      program_(kPaintVertexShader, kPaintFragmentShader),
      transformAt_(program_.Uniform("uTransform")),
      useAt_(program_.Uniform("uUse")) {
  program_.Use();
  glUniform1i(program_.Uniform("uTexture"), 0);
  glUniform1f(program_.Uniform("uReach"), static_cast<float>(kDistanceFieldReach));
  glBindVertexArray(array_.Get());
  glBindBuffer(GL_ARRAY_BUFFER, vertices_.Get());
  DescribePaintedVertices();
  glBindVertexArray(0);
}

void VertexPainter::SetVertices(const std::vector<base::DrawVertex>& vertices) {
  if (vertices.empty()) return;
  const auto bytes = static_cast<GLsizeiptr>(vertices.size() * sizeof(base::DrawVertex));
  glBindBuffer(GL_ARRAY_BUFFER, vertices_.Get());
  glBufferData(GL_ARRAY_BUFFER, bytes, vertices.data(), GL_STREAM_DRAW);
}

void VertexPainter::Draw(const base::DrawItem& item, const Matrix4x4& transform) const {
  if (item.vertexCount == 0) return;
  program_.Use();
  glUniformMatrix4fv(transformAt_, 1, GL_FALSE, &transform.m[0][0]);
  glUniform1i(useAt_, static_cast<GLint>(item.textureUse));
  const bool picture = item.textureUse == base::TextureUse::Color;
  textures_.Bind(item.texture, 0, picture ? TextureStore::Filter::Clamp : TextureStore::Filter::Page);
  glDisable(GL_CULL_FACE);
  glBindVertexArray(array_.Get());
  glDrawArrays(item.kind == base::DrawKind::Lines3D ? GL_LINES : GL_TRIANGLES, static_cast<GLint>(item.firstVertex),
               static_cast<GLsizei>(item.vertexCount));
}

}  // namespace qen::host
