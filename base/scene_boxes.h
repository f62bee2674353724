// Boxes of meshes.
#pragma once

#include <vector>

#include "base/backends/scene_backend.h"
#include "engine/aabb.h"

namespace qen::base {

// The box of every finite vertex, local.
QEN_API AABB BoxOf(const std::vector<SubMeshData>& subMeshes);

}  // namespace qen::base
