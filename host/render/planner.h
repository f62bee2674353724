// Makes the plan of a frame.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "host/render/frame_index.h"
#include "host/render/frame_plan.h"

namespace qen::host {

// Keeps its storage from frame to frame.
class Planner {
 public:
  // Solid meshes are put together by material, geometry and light. What is blended keeps its order, from far to near
  // and equally far things as they came; neighbours that look alike are put together.
  void Plan(const base::DrawList& list, FramePlan& plan);

 private:
  // What the meshes of a batch have in common.
  struct Look {
    const MaterialParams* material = nullptr;
    const LightList* lights = nullptr;
    std::uint32_t geometry = 0;
    bool mirrored = false;

    friend bool operator==(const Look&, const Look&) = default;
  };
  struct Hash {
    std::size_t operator()(const Look& look) const;
    std::size_t operator()(const void* address) const;
  };

  // Solid meshes of one look.
  struct Kind {
    Batch batch;
    std::uint32_t nearness = 0;  // of the nearest
    std::uint32_t next = 0;      // place to be filled
  };

  void PlanLayer(std::span<const base::DrawItem> items, PlannedLayer& layer);
  void Sort(std::span<const base::DrawItem> items);
  void SortBlended();
  void AddSolid(std::span<const base::DrawItem> items);
  void PlaceKinds();
  void AddInOrder(const base::DrawItem& item, std::uint32_t firstBatch);
  Batch AddMesh(const base::DrawItem& item);
  Batch AddText(const base::DrawItem& item);
  Batch AddVertices(const base::DrawItem& item);
  Batch MeshesOf(const Look& look);

  const base::DrawList* list_ = nullptr;
  FramePlan* plan_ = nullptr;
  std::uint32_t glyphs_ = 0;  // planned so far

  // Of the layer: positions in its items.
  std::vector<std::uint32_t> solid_;
  std::vector<std::uint32_t> flat_;
  std::vector<std::uint64_t> blended_;            // how near it is, and below that the position
  std::vector<std::uint64_t> unsorted_, sorted_;  // blended_ when it was sorted last
  std::vector<Kind> kinds_;                       // of the solid ones
  std::vector<std::uint32_t> kindOf_;             // by solid_
  std::vector<std::uint32_t> order_;              // of the kinds
  FrameIndex<Look, Hash> looks_;

  // Of the frame.
  FrameIndex<const MaterialParams*, Hash> materials_;
  FrameIndex<const LightList*, Hash> lights_;
};

}  // namespace qen::host
