#include "host/render/glyph_buffer.h"

#include <algorithm>
#include <cstddef>
#include <span>

namespace qen::host {
namespace {

constexpr std::size_t kGlyphBytes = 4 * sizeof(base::DrawVertex);
constexpr std::size_t kIndices = 6;  // a glyph

std::vector<std::uint32_t> IndicesOf(std::size_t glyphs) {
  std::vector<std::uint32_t> indices;
  indices.reserve(kIndices * glyphs);
  for (std::uint32_t corner = 0; corner < 4 * glyphs; corner += 4) {
    for (const std::uint32_t i : {0U, 1U, 2U, 1U, 3U, 2U}) indices.push_back(corner + i);
  }
  return indices;
}

}  // namespace

void DescribeDrawVertices() {
  constexpr GLsizei kStride = sizeof(base::DrawVertex);
  glVertexAttribPointer(0, 3, GL_FLOAT, GL_FALSE, kStride, BufferOffset(offsetof(base::DrawVertex, position)));
  glVertexAttribPointer(1, 2, GL_FLOAT, GL_FALSE, kStride, BufferOffset(offsetof(base::DrawVertex, u)));
  // 0xAARRGGBB lies as blue, green, red, alpha in memory.
  glVertexAttribPointer(2, GL_BGRA, GL_UNSIGNED_BYTE, GL_TRUE, kStride, BufferOffset(offsetof(base::DrawVertex, argb)));
  for (GLuint i = 0; i < 3; ++i) glEnableVertexAttribArray(i);
}

GlyphBuffer::GlyphBuffer() {
  glBindVertexArray(array_.Get());
  glBindBuffer(GL_ARRAY_BUFFER, vertices_.Get());
  glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, indices_.Get());
  DescribeDrawVertices();
  glBindVertexArray(0);
}

void GlyphBuffer::Reserve(std::size_t glyphs) {
  if (glyphs <= capacity_) return;
  capacity_ = std::max(glyphs, 2 * capacity_);
  texts_.clear();
  glBufferData(GL_ARRAY_BUFFER, static_cast<GLsizeiptr>(capacity_ * kGlyphBytes), nullptr, GL_DYNAMIC_DRAW);
  const std::vector<std::uint32_t> indices = IndicesOf(capacity_);
  glBindVertexArray(array_.Get());
  glBufferData(GL_ELEMENT_ARRAY_BUFFER, static_cast<GLsizeiptr>(indices.size() * sizeof(std::uint32_t)), indices.data(),
               GL_STATIC_DRAW);
  glBindVertexArray(0);
}

void GlyphBuffer::Update(const FramePlan& plan) {
  std::size_t count = 0;
  for (const TextPlace& text : plan.texts) count += text.count;
  if (count == 0) return;
  glBindBuffer(GL_ARRAY_BUFFER, vertices_.Get());
  Reserve(count);

  std::size_t first = 0;
  bool isMoved = false;  // against the frame before
  for (std::size_t i = 0; i < plan.texts.size(); ++i) {
    const TextPlace& text = plan.texts[i];
    const bool isKnown = i < texts_.size() && !isMoved;
    if (!isKnown || texts_[i] != text) {
      if (runs_.empty() || runs_.back().end != first) runs_.push_back({first, first});
      Stage(text, plan.glyphs[i]);
      runs_.back().end += text.count;
      isMoved = isMoved || (isKnown && texts_[i].count != text.count);
    }
    first += text.count;
  }
  Upload();
  texts_ = plan.texts;
}

void GlyphBuffer::Stage(const TextPlace& text, const base::GlyphQuad* quads) {
  for (const base::GlyphQuad& quad : std::span(quads, text.count)) {
    const Vec3 top = text.origin + text.down * quad.top;
    const Vec3 bottom = text.origin + text.down * quad.bottom;
    const Vec3 left = text.right * quad.left;
    const Vec3 right = text.right * quad.right;
    staged_.push_back({top + left, quad.u0, quad.v0, text.argb});
    staged_.push_back({top + right, quad.u1, quad.v0, text.argb});
    staged_.push_back({bottom + left, quad.u0, quad.v1, text.argb});
    staged_.push_back({bottom + right, quad.u1, quad.v1, text.argb});
  }
}

// By way of a buffer of its own, so that nothing waits for the frames that are being drawn from the other one.
void GlyphBuffer::Upload() {
  if (staged_.empty()) return;
  glBindBuffer(GL_COPY_READ_BUFFER, upload_.Get());
  const auto bytes = static_cast<GLsizeiptr>(staged_.size() * sizeof(base::DrawVertex));
  glBufferData(GL_COPY_READ_BUFFER, bytes, staged_.data(), GL_STREAM_DRAW);
  std::size_t staged = 0;
  for (const Run& run : runs_) {
    const std::size_t count = run.end - run.begin;
    glCopyBufferSubData(GL_COPY_READ_BUFFER, GL_ARRAY_BUFFER, static_cast<GLintptr>(staged * kGlyphBytes),
                        static_cast<GLintptr>(run.begin * kGlyphBytes), static_cast<GLsizeiptr>(count * kGlyphBytes));
    staged += count;
  }
  staged_.clear();
  runs_.clear();
}

void GlyphBuffer::Draw(std::uint32_t first, std::uint32_t count) const {
  glBindVertexArray(array_.Get());
  glDrawElements(GL_TRIANGLES, static_cast<GLsizei>(kIndices * count), GL_UNSIGNED_INT,
                 BufferOffset(kIndices * sizeof(std::uint32_t) * first));
}

}  // namespace qen::host
