// The meshes of a glTF file.
#pragma once

#include <vector>

#include "base/backends/scene_backend.h"
#include "host/scenes/gltf_accessors.h"
#include "host/scenes/gltf_document.h"

namespace qen::host {

// All meshes by their position in the file, a sub-mesh a primitive of triangles. Primitives of points and lines are
// left out. Where normals are missing the triangles are flat.
std::vector<std::vector<base::SubMeshData>> ReadMeshes(const GltfDocument& document, GltfAccessors& accessors);

}  // namespace qen::host
