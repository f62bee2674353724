#include "host/render/draw_order.h"

#include <algorithm>
#include <cmath>

#include "engine/mesh.h"

namespace qen::host {
namespace {

std::vector<std::uint32_t>* GroupOf(const base::DrawItem& item, DrawOrder& order) {
  if (item.kind == base::DrawKind::Triangles2D) return &order.flat;
  if (item.kind != base::DrawKind::Mesh) return &order.blended;
  if (item.entry.subMesh == nullptr) return nullptr;
  const bool blended = item.entry.subMesh->GetMaterialParams().alphaMode == AlphaMode::Blend;
  return blended ? &order.blended : &order.solid;
}

// Comparable whatever a degenerate matrix made of it.
float DistanceOf(const base::DrawItem& item) { return std::isnan(item.distance) ? 0.0F : item.distance; }

}  // namespace

void DrawOrder::Sort(const base::DrawList& list, const base::DrawLayer& layer) {
  solid.clear();
  blended.clear();
  flat.clear();
  for (std::uint32_t i = layer.firstItem; i < layer.firstItem + layer.itemCount; ++i) {
    if (std::vector<std::uint32_t>* group = GroupOf(list.items[i], *this)) group->push_back(i);
  }
  // std::stable_sort would allocate; the position makes the order complete instead.
  std::ranges::sort(blended, [&list](std::uint32_t a, std::uint32_t b) {
    const float farA = DistanceOf(list.items[a]);
    const float farB = DistanceOf(list.items[b]);
    return farA != farB ? farA > farB : a < b;
  });
}

}  // namespace qen::host
