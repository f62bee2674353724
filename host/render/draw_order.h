// The order that the items of a layer are drawn in.
#pragma once

#include <cstdint>
#include <vector>

#include "base/draw_list.h"

namespace qen::host {

// Positions in the list of items. The storage is kept from layer to layer.
struct DrawOrder {
  std::vector<std::uint32_t> solid;    // opaque and cut-out meshes, as they came
  std::vector<std::uint32_t> blended;  // from far to near, equally far ones as they came
  std::vector<std::uint32_t> flat;     // Triangles2D, as they came

  void Sort(const base::DrawList& list, const base::DrawLayer& layer);
};

}  // namespace qen::host
