// The meshes of the renderer.
#pragma once

#include <cstdint>
#include <span>

#include "base/backends/scene_backend.h"
#include "host/render/gl_objects.h"
#include "host/render/handle_table.h"

namespace qen::host {

class GeometryStore {
 public:
  // Triangles. 0 when there are none, or an index names no vertex.
  std::uint32_t Create(std::span<const base::Vertex> vertices, std::span<const std::uint32_t> indices);
  void Destroy(std::uint32_t geometry) { meshes_.Remove(geometry); }

  [[nodiscard]] std::uint64_t Changes() const { return meshes_.Changes(); }  // grows whenever a name's meaning changes

  // Draws one for each of `count` places from `first` on, with the present program. Places are MeshPlaces; unknown
  // geometries are ignored.
  void Draw(std::uint32_t geometry, const GlBuffer& places, std::uint32_t first, std::uint32_t count) const;

 private:
  struct Mesh {
    GlVertexArray array;
    GlBuffer vertices;
    GlBuffer indices;
    GLsizei count = 0;
  };

  HandleTable<Mesh> meshes_;
};

}  // namespace qen::host
