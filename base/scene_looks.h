// What a scene's meshes look like: their shapes, materials and textures.
#pragma once

#include <cstdint>
#include <memory>
#include <unordered_set>
#include <vector>

#include "base/backends/scene_backend.h"
#include "base/textures.h"
#include "engine/aabb.h"
#include "engine/material.h"

namespace qen::base {

class IRenderBackend;

// What is the same, in one mesh or in several, is kept once.
class SceneLooks {
 public:
  struct Part {
    std::uint32_t geometry;  // the renderer's name; 0: none
    const MaterialParams* material;
  };

  struct Shape {
    AABB box;
    std::vector<Part> parts;  // one a sub-mesh
  };

  // Gives the renderer what the file holds. Empty before.
  void Make(const String& file, const SceneData& source, Context& context);

  // The mesh of that position in the file; null when there is none.
  [[nodiscard]] const Shape* At(std::int32_t mesh) const;

  // Materials and textures end. `render` loses the geometries; null when it is gone.
  void Clear(IRenderBackend* render);

 private:
  struct HashOfMaterial {
    std::size_t operator()(const MaterialParams& params) const;
  };

  void MakeTextures(const String& file, const SceneData& source, Context& context);
  [[nodiscard]] std::vector<const MaterialParams*> MakeMaterials(const SceneData& source);
  [[nodiscard]] Texture* TextureAt(std::int32_t image) const;

  std::vector<std::unique_ptr<TextureObject>> textures_;
  std::unordered_set<MaterialParams, HashOfMaterial> materials_;
  std::vector<std::uint32_t> geometries_;
  std::vector<Shape> shapes_;
};

}  // namespace qen::base
