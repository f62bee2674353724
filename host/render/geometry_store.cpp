#include "host/render/geometry_store.h"

#include <algorithm>
#include <cstddef>

#include "host/render/frame_plan.h"

namespace qen::host {
namespace {

constexpr GLuint kFirstColumn = 4;  // of the place, behind the vertex's attributes

void DescribeMeshVertices() {
  constexpr GLsizei kStride = sizeof(base::Vertex);
  glVertexAttribPointer(0, 3, GL_FLOAT, GL_FALSE, kStride, BufferOffset(offsetof(base::Vertex, position)));
  glVertexAttribPointer(1, 3, GL_FLOAT, GL_FALSE, kStride, BufferOffset(offsetof(base::Vertex, normal)));
  glVertexAttribPointer(2, 4, GL_FLOAT, GL_FALSE, kStride, BufferOffset(offsetof(base::Vertex, u)));
  glVertexAttribPointer(3, 4, GL_UNSIGNED_BYTE, GL_TRUE, kStride, BufferOffset(offsetof(base::Vertex, color)));
  for (GLuint i = 0; i < kFirstColumn; ++i) glEnableVertexAttribArray(i);
  for (GLuint i = kFirstColumn; i < kFirstColumn + 3; ++i) {
    glEnableVertexAttribArray(i);
    glVertexAttribDivisor(i, 1);
  }
}

void DescribePlaces(const GlBuffer& places, std::uint32_t first) {
  constexpr std::size_t kColumn = 4 * sizeof(float);
  glBindBuffer(GL_ARRAY_BUFFER, places.Get());
  for (GLuint i = 0; i < 3; ++i) {
    glVertexAttribPointer(kFirstColumn + i, 4, GL_FLOAT, GL_FALSE, sizeof(MeshPlace),
                          BufferOffset(first * sizeof(MeshPlace) + i * kColumn));
  }
}

}  // namespace

std::uint32_t GeometryStore::Create(std::span<const base::Vertex> vertices, std::span<const std::uint32_t> indices) {
  if (indices.size() < 3 || std::ranges::max(indices) >= vertices.size()) return 0;
  Mesh mesh;
  mesh.count = static_cast<GLsizei>(indices.size() - indices.size() % 3);
  glBindVertexArray(mesh.array.Get());
  glBindBuffer(GL_ARRAY_BUFFER, mesh.vertices.Get());
  glBufferData(GL_ARRAY_BUFFER, static_cast<GLsizeiptr>(vertices.size_bytes()), vertices.data(), GL_STATIC_DRAW);
  glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, mesh.indices.Get());
  glBufferData(GL_ELEMENT_ARRAY_BUFFER, static_cast<GLsizeiptr>(indices.size_bytes()), indices.data(), GL_STATIC_DRAW);
  DescribeMeshVertices();
  glBindVertexArray(0);
  return meshes_.Add(std::move(mesh));
}

void GeometryStore::Draw(std::uint32_t geometry, const GlBuffer& places, std::uint32_t first,
                         std::uint32_t count) const {
  const Mesh* mesh = meshes_.Find(geometry);
  if (mesh == nullptr) return;
  glBindVertexArray(mesh->array.Get());
  DescribePlaces(places, first);
  glDrawElementsInstanced(GL_TRIANGLES, mesh->count, GL_UNSIGNED_INT, nullptr, static_cast<GLsizei>(count));
}

}  // namespace qen::host
