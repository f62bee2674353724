// The nodes of a glTF file.
#pragma once

#include <cstddef>
#include <vector>

#include "base/backends/scene_backend.h"
#include "host/scenes/gltf_document.h"

namespace qen::host {

// The nodes of the default scene (the first one without a default, all nodes without scenes), depth first, parents
// before children. Meshes keep their positions in the file.
std::vector<base::NodeData> ReadNodes(const GltfDocument& document);

// A node's name in the file; one made of its position when it has none.
String NodeName(const Json& node, std::size_t position);

}  // namespace qen::host
