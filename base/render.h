// The render service: collects what one frame shows.
#pragma once

#include <cstddef>
#include <deque>
#include <span>

#include "base/draw_list.h"
#include "engine/render.h"

namespace qen {
class Mesh;
}

namespace qen::base {

class IRenderBackend;

class RenderService final : public IRender {
 public:
  explicit RenderService(IRenderBackend* backend) : backend_(backend) {}

  void SetProjection(const Matrix4x4& projection) override;
  void SetView(const Matrix4x4& view) override;
  void Submit(const RenderEntry& entry) override;

  // As Submit, for the engine's own use.
  void Add(const RenderEntry& entry);

  // The item that vertices of this look belong to: the last one when it looks the same, else a new one. Vertices are
  // only added with AddVertices, before the next call of anything else here.
  DrawItem& BeginVertices(const DrawItem& look);
  void AddVertices(DrawItem& item, std::span<const DrawVertex> vertices);

  // An item of its own, a Text2D or Text3D.
  void AddText(const DrawItem& text);

  // How far a point is from the plane of the camera of the present layer.
  [[nodiscard]] float DistanceOf(const Vec3& world) const;

  // Both together, in a list that stays until the next frame begins.
  const LightList& Keep(const LightList& lights, const LightList& more);

  // What is about to go away is taken out of the frame.
  void Forget(std::span<const Mesh> meshes);
  void Forget(const LightList& lights);
  void ForgetTexture(std::uint32_t texture);

  void BeginFrame();
  void EndFrame(std::int32_t width, std::int32_t height);
  [[nodiscard]] const DrawList& GetDrawList() const { return list_; }

 private:
  DrawLayer& CurrentLayer();

  IRenderBackend* backend_;  // may be null
  DrawList list_;
  std::deque<LightList> keptLights_;  // the first `keptCount_` are of this frame; the others keep their storage
  std::size_t keptCount_ = 0;
};

}  // namespace qen::base
