// A renderer that keeps what it is given.
#pragma once

#include <cstdint>
#include <map>
#include <vector>

#include "base/backends/render_backend.h"

namespace qen::base {

class QEN_API RecordingRender final : public IRenderBackend {
 public:
  struct Geometry {
    std::vector<Vertex> vertices;
    std::vector<std::uint32_t> indices;
  };

  std::uint32_t CreateTexture(const Image& image) override;
  void DestroyTexture(std::uint32_t texture) override;
  std::uint32_t CreateGeometry(std::span<const Vertex> vertices, std::span<const std::uint32_t> indices) override;
  void DestroyGeometry(std::uint32_t geometry) override;
  void Draw(const DrawList& list, std::int32_t width, std::int32_t height) override;

  std::map<std::uint32_t, Image> textures;  // that exist
  std::map<std::uint32_t, Geometry> geometries;
  DrawList frame;  // the last one; the sub-meshes it points to may be gone
  std::int32_t width = 0;
  std::int32_t height = 0;

 private:
  std::uint32_t last_ = 0;
};

}  // namespace qen::base
