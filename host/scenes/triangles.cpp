#include "host/scenes/triangles.h"

#include <numeric>
#include <utility>

namespace qen::host {

std::vector<std::uint32_t> ToTriangles(std::vector<std::uint32_t> indices, Triangulation how) {
  if (how == Triangulation::List) {
    indices.resize(indices.size() - indices.size() % 3);
    return indices;
  }
  std::vector<std::uint32_t> triangles;
  for (std::size_t i = 2; i < indices.size(); ++i) {
    const bool isFan = how == Triangulation::Fan;
    const bool isTurned = !isFan && i % 2 == 1;  // every second one of a strip runs the other way
    const std::uint32_t first = isFan ? indices[0] : indices[i - 2];
    const std::uint32_t second = indices[i - 1];
    triangles.insert(triangles.end(), {isTurned ? second : first, isTurned ? first : second, indices[i]});
  }
  return triangles;
}

void MakeFlat(base::SubMeshData& subMesh) {
  std::vector<base::Vertex> vertices;
  vertices.reserve(subMesh.indices.size());
  for (const std::uint32_t index : subMesh.indices) vertices.push_back(subMesh.vertices[index]);
  for (std::size_t i = 0; i + 2 < vertices.size(); i += 3) {
    const Vec3& corner = vertices[i].position;
    Vec3 normal = Cross(vertices[i + 1].position - corner, vertices[i + 2].position - corner);
    normal.Normalize();
    for (std::size_t k = i; k < i + 3; ++k) vertices[k].normal = normal;
  }
  subMesh.vertices = std::move(vertices);
  std::iota(subMesh.indices.begin(), subMesh.indices.end(), 0U);
}

}  // namespace qen::host
