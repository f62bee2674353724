#include "base/render.h"

#include <algorithm>
#include <cstring>
#include <functional>
#include <iterator>
#include <vector>

#include "base/backends/render_backend.h"
#include "base/record.h"
#include "engine/mesh.h"

namespace qen::base {
namespace {

bool LooksLike(const DrawItem& a, const DrawItem& b) {
  return a.kind == b.kind && a.textureUse == b.textureUse && a.texture == b.texture && a.distance == b.distance &&
         std::memcmp(&a.world, &b.world, sizeof a.world) == 0;
}

// Draws nothing from now on.
void Blank(DrawItem& item) {
  item = DrawItem{};
  item.kind = DrawKind::Triangles3D;
}

// The sub-meshes of many meshes, to be asked quickly.
class SubMeshSet {
 public:
  explicit SubMeshSet(std::span<const Mesh> meshes) {
    for (const Mesh& mesh : meshes) {
      const SubMesh* first = mesh.subMeshes.data();
      if (!mesh.subMeshes.empty()) ranges_.push_back({first, first + mesh.subMeshes.size()});
    }
    std::ranges::sort(ranges_, std::less<>{}, &Range::first);
  }

  [[nodiscard]] bool Contains(const SubMesh* subMesh) const {
    const auto next = std::ranges::upper_bound(ranges_, subMesh, std::less<>{}, &Range::first);
    return next != ranges_.begin() && std::less<>{}(subMesh, std::prev(next)->end);
  }

 private:
  struct Range {
    const SubMesh* first;
    const SubMesh* end;
  };

  std::vector<Range> ranges_;  // by their beginning
};

}  // namespace

void RenderService::SetProjection(const Matrix4x4& projection) {
  Record("IRender::SetProjection", projection);
  DrawLayer layer;
  layer.projection = projection;
  layer.firstItem = static_cast<std::uint32_t>(list_.items.size());
  list_.layers.push_back(layer);
}

void RenderService::SetView(const Matrix4x4& view) {
  Record("IRender::SetView", view);
  CurrentLayer().view = view;
}

void RenderService::Submit(const RenderEntry& entry) {
  Record("IRender::Submit", Named{entry.subMesh}, entry.distance);
  Add(entry);
}

void RenderService::Add(const RenderEntry& entry) {
  if (entry.subMesh == nullptr) return;
  DrawItem& item = list_.items.emplace_back();
  item.subMesh = entry.subMesh;
  item.lights = entry.lights;
  item.distance = entry.distance;
  if (entry.world != nullptr) item.world = *entry.world;
  ++CurrentLayer().itemCount;
}

DrawItem& RenderService::BeginVertices(const DrawItem& look) {
  DrawLayer& layer = CurrentLayer();
  if (layer.itemCount > 0 && LooksLike(list_.items.back(), look)) return list_.items.back();
  DrawItem& item = list_.items.emplace_back(look);
  item.firstVertex = static_cast<std::uint32_t>(list_.vertices.size());
  item.vertexCount = 0;
  ++layer.itemCount;
  return item;
}

void RenderService::AddVertices(DrawItem& item, std::span<const DrawVertex> vertices) {
  list_.vertices.insert(list_.vertices.end(), vertices.begin(), vertices.end());
  item.vertexCount += static_cast<std::uint32_t>(vertices.size());
}

void RenderService::AddText(const DrawItem& text) {
  ++CurrentLayer().itemCount;
  list_.items.push_back(text);
}

float RenderService::DistanceOf(const Vec3& world) const {
  return list_.layers.empty() ? world.z : (list_.layers.back().view * world).z;
}

void RenderService::Forget(std::span<const Mesh> meshes) {
  if (list_.items.empty()) return;
  const SubMeshSet gone(meshes);
  for (DrawItem& item : list_.items) {
    if (item.kind == DrawKind::Mesh && gone.Contains(item.subMesh)) Blank(item);
  }
}

void RenderService::Forget(const LightList& lights) {
  for (DrawItem& item : list_.items) {
    if (item.lights == &lights) item.lights = nullptr;
  }
  for (LightList& kept : keptLights_) {
    std::erase_if(kept, [&lights](const Light* light) { return std::ranges::find(lights, light) != lights.end(); });
  }
}

void RenderService::ForgetTexture(std::uint32_t texture) {
  for (DrawItem& item : list_.items) {
    if (item.kind != DrawKind::Mesh && item.texture == texture) Blank(item);
  }
}

const LightList& RenderService::Keep(const LightList& lights, const LightList& more) {
  if (keptCount_ == keptLights_.size()) keptLights_.emplace_back();
  LightList& kept = keptLights_[keptCount_++] = lights;
  kept.insert(kept.end(), more.begin(), more.end());
  return kept;
}

void RenderService::BeginFrame() {
  list_.Clear();
  keptCount_ = 0;
}

void RenderService::EndFrame(std::int32_t width, std::int32_t height) {
  if (backend_ != nullptr) backend_->Draw(list_, width, height);
}

DrawLayer& RenderService::CurrentLayer() {
  if (list_.layers.empty()) list_.layers.emplace_back();
  return list_.layers.back();
}

}  // namespace qen::base
