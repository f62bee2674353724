// Meshes of scene nodes.
#pragma once

#include <cstdint>
#include <vector>

#include "engine/aabb.h"
#include "engine/material.h"

namespace qen {

// The part of a mesh that has one material.
class SubMesh {
 public:
  MaterialParams& GetMaterialParams() { return params_; }
  [[nodiscard]] const MaterialParams& GetMaterialParams() const { return params_; }

  std::uint32_t geometry = 0;  // the renderer's name for vertices and indices; 0 none

 private:
  MaterialParams params_;
};

class Mesh {
 public:
  [[nodiscard]] const AABB& GetAABB() const { return box; }  // in the node's local space
  [[nodiscard]] std::uint32_t GetNumSubMeshes() const { return static_cast<std::uint32_t>(subMeshes.size()); }
  SubMesh* GetSubMesh(std::uint32_t i) { return i < subMeshes.size() ? &subMeshes[i] : nullptr; }

  AABB box;
  std::vector<SubMesh> subMeshes;  // fixed once the scene is loaded
};

}  // namespace qen
