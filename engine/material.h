// Materials, and the parameters a surface is drawn with.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "engine/resource.h"

namespace qen {

class Texture;

// The way a surface is drawn, shared by name.
class Material : public Resource {
 protected:
  using Resource::Resource;
};

class MaterialManager : public ResourceManager {
 public:
  QEN_API static MaterialManager* GetSingleton();  // null while there is no engine

  // Both give one use of the material of that name and group, which is made when it does not exist. Null on failure.
  virtual Material* Create(const String& name, const String& group) = 0;
  virtual Material* GetByName(const String& name, const String& group) = 0;
};

// Slot 0 is the engine's own (emissive picture of a model), slot 1 the picture of the surface. The others hold numbers,
// not colours: slot 2 normals, slot 3 roughness in green and metalness in blue, slot 4 occlusion in red.
enum TEXTURE_SLOT : std::uint32_t {
  TEXTURE_SLOT_0,
  TEXTURE_SLOT_1,
  TEXTURE_SLOT_2,
  TEXTURE_SLOT_3,
  TEXTURE_SLOT_4,
  TEXTURE_SLOT_COUNT
};

enum class AlphaMode : std::uint8_t { Opaque, Mask, Blend };

// How a texture lies on a surface.
struct TexturePlacement {
  // (u, v) becomes (x[0] u + x[1] v + x[2], y[0] u + y[1] v + y[2]).
  std::array<float, 3> x{1.0F, 0.0F, 0.0F};
  std::array<float, 3> y{0.0F, 1.0F, 0.0F};
  std::uint32_t uvSet = 0;  // which of the mesh's two sets of coordinates, 0 or 1

  friend bool operator==(const TexturePlacement&, const TexturePlacement&) = default;
};

class QEN_API MaterialParams {
 public:
  MaterialParams() = default;

  // Puts a texture into a slot; slots hold one, null empties. The texture is not owned.
  void AddTexture(TEXTURE_SLOT slot, Texture* texture);
  void RemoveTexture(TEXTURE_SLOT slot);
  [[nodiscard]] Texture* GetTexture(TEXTURE_SLOT slot) const;  // null when empty

  friend bool operator==(const MaterialParams&, const MaterialParams&) = default;

  // Linear values, 0 to 1; emissive may be brighter.
  std::array<float, 4> baseColor{1.0F, 1.0F, 1.0F, 1.0F};
  std::array<float, 3> emissive{};
  float metallic = 0.0F;
  float roughness = 1.0F;
  float alphaCutoff = 0.5F;
  AlphaMode alphaMode = AlphaMode::Opaque;
  bool doubleSided = false;
  bool unlit = false;              // shows its own colours under any light
  float normalScale = 1.0F;        // how steep slot 2 is
  float occlusionStrength = 1.0F;  // how much of slot 4 counts, 0 to 1
  std::array<TexturePlacement, TEXTURE_SLOT_COUNT> placements{};

 private:
  std::array<Texture*, TEXTURE_SLOT_COUNT> textures_{};
};

}  // namespace qen
