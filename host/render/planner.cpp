#include "host/render/planner.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <numeric>
#include <utility>

#include "engine/mesh.h"

namespace qen::host {
namespace {

using base::DrawItem;
using base::DrawKind;
using base::DrawVertex;

constexpr int kPositionBits = 32;

Vec3 Row(const Matrix4x4& matrix, int i) { return {matrix.m[i][0], matrix.m[i][1], matrix.m[i][2]}; }

bool IsMirrored(const Matrix4x4& world) { return Dot(Row(world, 0), Cross(Row(world, 1), Row(world, 2))) < 0.0F; }

MeshPlace PlaceOf(const Matrix4x4& world) {
  MeshPlace place;
  for (std::size_t column = 0; column < 3; ++column) {
    for (std::size_t row = 0; row < 4; ++row) place.columns[column * 4 + row] = world.m[row][column];
  }
  return place;
}

// Grows as the distance falls; comparable whatever a degenerate matrix made of it.
std::uint32_t NearnessOf(const DrawItem& item) {
  constexpr std::uint32_t kSign = 0x80000000;
  const float distance = std::isnan(item.distance) ? 0.0F : item.distance + 0.0F;
  const auto bits = std::bit_cast<std::uint32_t>(distance);
  return (bits & kSign) != 0 ? bits : ~bits & ~kSign;
}

bool IsFlat(DrawKind kind) { return kind == DrawKind::Triangles2D || kind == DrawKind::Text2D; }

// Whether one draw can go on with the other's things.
bool LookAlike(Batch a, const Batch& b) {
  a.first = b.first;
  a.count = b.count;
  return a == b;
}

}  // namespace

std::size_t Planner::Hash::operator()(const void* address) const {
  return (reinterpret_cast<std::uintptr_t>(address) >> 4U) * 0x9E3779B97F4A7C15U >> 32U;
}

std::size_t Planner::Hash::operator()(const Look& look) const {
  return (*this)(look.material) ^ (look.geometry * std::size_t{0x9E3779B1}) ^ (look.mirrored ? 1U : 0U);
}

void Planner::Plan(const base::DrawList& list, FramePlan& plan) {
  list_ = &list;
  plan_ = &plan;
  glyphs_ = 0;
  plan.Clear();
  materials_.Clear();
  lights_.Clear();
  for (const base::DrawLayer& layer : list.layers) {
    PlannedLayer& planned = plan.layers.emplace_back();
    planned.view = layer.view;
    planned.projection = layer.projection;
    PlanLayer(std::span(list.items).subspan(layer.firstItem, layer.itemCount), planned);
  }
}

void Planner::PlanLayer(std::span<const DrawItem> items, PlannedLayer& layer) {
  const auto count = [this] { return static_cast<std::uint32_t>(plan_->batches.size()); };
  Sort(items);
  layer.begin = count();
  AddSolid(items);
  layer.blended = count();
  for (const std::uint64_t place : blended_) AddInOrder(items[static_cast<std::uint32_t>(place)], layer.blended);
  layer.flat = count();
  for (const std::uint32_t i : flat_) AddInOrder(items[i], layer.flat);
  layer.end = count();
}

void Planner::Sort(std::span<const DrawItem> items) {
  solid_.clear();
  blended_.clear();
  flat_.clear();
  for (std::uint32_t i = 0; i < items.size(); ++i) {
    const DrawItem& item = items[i];
    if (item.kind == DrawKind::Mesh && item.subMesh == nullptr) continue;
    if (IsFlat(item.kind)) {
      flat_.push_back(i);
    } else if (item.kind != DrawKind::Mesh || item.subMesh->GetMaterialParams().alphaMode == AlphaMode::Blend) {
      blended_.push_back(std::uint64_t{NearnessOf(item)} << kPositionBits | i);
    } else {
      solid_.push_back(i);
    }
  }
  SortBlended();
}

// Most frames have the distances of the frame before.
void Planner::SortBlended() {
  if (std::ranges::is_sorted(blended_)) return;
  if (blended_ != unsorted_) {
    unsorted_ = blended_;
    sorted_ = blended_;
    std::ranges::sort(sorted_);
  }
  blended_ = sorted_;
}

void Planner::AddSolid(std::span<const DrawItem> items) {
  looks_.Clear();
  kinds_.clear();
  kindOf_.clear();
  for (const std::uint32_t i : solid_) {
    const DrawItem& item = items[i];
    const Look look{&item.subMesh->GetMaterialParams(), item.lights, item.subMesh->geometry, IsMirrored(item.world)};
    const auto [number, isNew] = looks_.NumberOf(look);
    if (isNew) kinds_.push_back({.batch = MeshesOf(look)});
    ++kinds_[number].batch.count;
    kinds_[number].nearness = std::max(kinds_[number].nearness, NearnessOf(item));
    kindOf_.push_back(number);
  }
  PlaceKinds();
  for (std::size_t i = 0; i < solid_.size(); ++i) {
    plan_->places[kinds_[kindOf_[i]].next++] = PlaceOf(items[solid_[i]].world);
  }
}

// What is nearer comes first, so that less is drawn that is covered later.
void Planner::PlaceKinds() {
  order_.resize(kinds_.size());
  std::iota(order_.begin(), order_.end(), 0U);
  std::ranges::sort(order_, [this](std::uint32_t a, std::uint32_t b) {
    return kinds_[a].nearness != kinds_[b].nearness ? kinds_[a].nearness > kinds_[b].nearness : a < b;
  });
  auto first = static_cast<std::uint32_t>(plan_->places.size());
  for (const std::uint32_t number : order_) {
    Kind& kind = kinds_[number];
    kind.next = kind.batch.first = first;
    first += kind.batch.count;
    plan_->batches.push_back(kind.batch);
  }
  plan_->places.resize(first);
}

void Planner::AddInOrder(const DrawItem& item, std::uint32_t firstBatch) {
  const bool isText = item.kind == DrawKind::Text3D || item.kind == DrawKind::Text2D;
  const Batch batch = item.kind == DrawKind::Mesh ? AddMesh(item) : isText ? AddText(item) : AddVertices(item);
  if (plan_->batches.size() > firstBatch && LookAlike(batch, plan_->batches.back())) {
    plan_->batches.back().count += batch.count;
  } else if (batch.count > 0) {
    plan_->batches.push_back(batch);
  }
}

Batch Planner::AddMesh(const DrawItem& item) {
  Batch batch =
      MeshesOf({&item.subMesh->GetMaterialParams(), item.lights, item.subMesh->geometry, IsMirrored(item.world)});
  batch.first = static_cast<std::uint32_t>(plan_->places.size());
  batch.count = 1;
  plan_->places.push_back(PlaceOf(item.world));
  return batch;
}

Batch Planner::AddText(const DrawItem& item) {
  const base::GlyphRun& run = item.glyphs;
  TextPlace place{run.content, run.count, run.argb, run.origin, {1.0F, 0.0F, 0.0F}, {0.0F, 1.0F, 0.0F}};
  if (item.kind == DrawKind::Text3D) {
    place.origin = item.world * run.origin;
    place.right = Row(item.world, 0) * run.pixel;
    place.down = Row(item.world, 2) * -run.pixel;
  }
  plan_->texts.push_back(place);
  plan_->glyphs.push_back(run.quads);
  const std::uint32_t first = std::exchange(glyphs_, glyphs_ + run.count);
  return {.kind = BatchKind::Glyphs,
          .textureUse = item.textureUse,
          .name = item.texture,
          .first = first,
          .count = run.count};
}

Batch Planner::AddVertices(const DrawItem& item) {
  const auto first = static_cast<std::uint32_t>(plan_->vertices.size());
  for (const DrawVertex& vertex : std::span(list_->vertices).subspan(item.firstVertex, item.vertexCount)) {
    DrawVertex& placed = plan_->vertices.emplace_back(vertex);
    if (!IsFlat(item.kind)) placed.position = item.world * vertex.position;
  }
  return {.kind = item.kind == DrawKind::Lines3D ? BatchKind::Lines : BatchKind::Triangles,
          .textureUse = item.textureUse,
          .name = item.texture,
          .first = first,
          .count = item.vertexCount};
}

// A batch without places.
Batch Planner::MeshesOf(const Look& look) {
  const auto [material, isNewMaterial] = materials_.NumberOf(look.material);
  if (isNewMaterial) plan_->materials.push_back(*look.material);
  const auto [light, isNewLight] = lights_.NumberOf(look.lights);
  if (isNewLight) plan_->lights.push_back(GatherLights(look.lights));
  return {.kind = BatchKind::Meshes,
          .mirrored = look.mirrored,
          .name = look.geometry,
          .material = material,
          .light = light};
}

}  // namespace qen::host
