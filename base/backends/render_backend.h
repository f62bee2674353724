// What draws.
#pragma once

#include <cstdint>
#include <span>

#include "base/backends/image.h"
#include "base/backends/scene_backend.h"
#include "base/draw_list.h"

namespace qen::base {

// Names of textures and geometry are never 0; 0 means failure, and is ignored where it is given.
class IRenderBackend {
 public:
  virtual ~IRenderBackend() = default;
  virtual std::uint32_t CreateTexture(const Image& image) = 0;
  virtual void DestroyTexture(std::uint32_t texture) = 0;

  // Positions and normals are already in the node's local space (z up).
  virtual std::uint32_t CreateGeometry(std::span<const Vertex> vertices, std::span<const std::uint32_t> indices) = 0;
  virtual void DestroyGeometry(std::uint32_t geometry) = 0;

  // Draws a whole frame of the given size in pixels.
  virtual void Draw(const DrawList& list, std::int32_t width, std::int32_t height) = 0;
};

}  // namespace qen::base
