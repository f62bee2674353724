// Lists of triangles from the other ways to say them.
#pragma once

#include <cstdint>
#include <vector>

#include "base/backends/scene_backend.h"

namespace qen::host {

enum class Triangulation : std::uint8_t { List, Strip, Fan };

// The triangles of a row of vertex indices, three indices each; what is left over at the end is dropped.
std::vector<std::uint32_t> ToTriangles(std::vector<std::uint32_t> indices, Triangulation how);

// Gives every triangle its own three vertices with its own normal. Every index must be that of a vertex.
void MakeFlat(base::SubMeshData& subMesh);

}  // namespace qen::host
