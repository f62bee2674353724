// Meshes of scene nodes.
#pragma once

#include <cstdint>
#include <span>

#include "engine/aabb.h"
#include "engine/material.h"
#include "engine/shared.h"

namespace qen {

// The part of a mesh that has one material.
class SubMesh {
 public:
  SubMesh() = default;
  // `material` outlives it; sub-meshes that look the same may have it in common.
  explicit SubMesh(std::uint32_t shape, const MaterialParams& material) : geometry(shape), params_(material) {}

  // For changing how it looks, and it alone: from then on it has a material of its own. Looking is for the other one.
  QEN_API MaterialParams& GetMaterialParams();
  [[nodiscard]] const MaterialParams& GetMaterialParams() const { return *params_; }

  std::uint32_t geometry = 0;  // the renderer's name for vertices and indices; 0 none

 private:
  Shared<MaterialParams> params_;
};

class Mesh {
 public:
  [[nodiscard]] const AABB& GetAABB() const { return *box; }  // in the node's local space
  [[nodiscard]] std::uint32_t GetNumSubMeshes() const { return static_cast<std::uint32_t>(subMeshes.size()); }
  [[nodiscard]] SubMesh* GetSubMesh(std::uint32_t i) const { return i < subMeshes.size() ? &subMeshes[i] : nullptr; }

  const AABB* box = nullptr;  // owned by the scene, like the next; meshes of one shape have it in common
  std::span<SubMesh> subMeshes;
};

}  // namespace qen
