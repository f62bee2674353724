#include "base/recording/recording_render.h"

namespace qen::base {

std::uint32_t RecordingRender::CreateTexture(const Image& image) {
  textures.emplace(++last_, image);
  return last_;
}

void RecordingRender::DestroyTexture(std::uint32_t texture) { textures.erase(texture); }

std::uint32_t RecordingRender::CreateGeometry(std::span<const Vertex> vertices,
                                              std::span<const std::uint32_t> indices) {
  geometries.emplace(++last_, Geometry{{vertices.begin(), vertices.end()}, {indices.begin(), indices.end()}});
  return last_;
}

void RecordingRender::DestroyGeometry(std::uint32_t geometry) { geometries.erase(geometry); }

void RecordingRender::Draw(const DrawList& list, std::int32_t frameWidth, std::int32_t frameHeight) {
  frame = list;
  frame.SpellOutTexts();
  width = frameWidth;
  height = frameHeight;
}

}  // namespace qen::base
