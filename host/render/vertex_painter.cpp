#include "host/render/vertex_painter.h"

#include "host/render/paint_shader.h"

namespace qen::host {

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
  DescribeDrawVertices();
  glBindVertexArray(0);
}

void VertexPainter::Begin(const FramePlan& plan) {
  glyphs_.Update(plan);
  if (plan.vertices.empty()) return;
  const auto bytes = static_cast<GLsizeiptr>(plan.vertices.size() * sizeof(base::DrawVertex));
  glBindBuffer(GL_ARRAY_BUFFER, vertices_.Get());
  glBufferData(GL_ARRAY_BUFFER, bytes, plan.vertices.data(), GL_STREAM_DRAW);
}

void VertexPainter::SetTransform(const Matrix4x4& transform) const {
  program_.Use();
  glUniformMatrix4fv(transformAt_, 1, GL_FALSE, &transform.m[0][0]);
}

void VertexPainter::Draw(const Batch& batch) const {
  program_.Use();
  glUniform1i(useAt_, static_cast<GLint>(batch.textureUse));
  const bool picture = batch.textureUse == base::TextureUse::Color;
  textures_.Bind(batch.name, 0, picture ? TextureStore::Filter::Clamp : TextureStore::Filter::Page);
  if (batch.kind == BatchKind::Glyphs) return glyphs_.Draw(batch.first, batch.count);
  glBindVertexArray(array_.Get());
  glDrawArrays(batch.kind == BatchKind::Lines ? GL_LINES : GL_TRIANGLES, static_cast<GLint>(batch.first),
               static_cast<GLsizei>(batch.count));
}

}  // namespace qen::host
