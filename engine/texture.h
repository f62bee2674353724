// Textures.
#pragma once

#include "engine/resource.h"

namespace qen {

class Texture : public Resource {
 public:
  [[nodiscard]] virtual std::uint32_t GetHandle() const = 0;  // the renderer's name for it
  [[nodiscard]] virtual std::int32_t GetWidth() const = 0;    // pixels
  [[nodiscard]] virtual std::int32_t GetHeight() const = 0;

 protected:
  using Resource::Resource;
};

class TextureManager : public ResourceManager {
 public:
  QEN_API static TextureManager* GetSingleton();  // null while there is no engine

  // Loads an image file; the same file is loaded once. `mipLevels` 0: as many as fit. `flags` is passed through to the
  // renderer (129: interface texture). Null when it cannot be loaded (the engine has logged it).
  virtual Texture* Load(const String& file, const String& group, std::int32_t mipLevels, std::uint32_t flags) = 0;
};

}  // namespace qen
