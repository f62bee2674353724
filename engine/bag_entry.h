// What the game puts into a slot of the inventory bag.
#pragma once

#include <cstdint>

#include "engine/types.h"

namespace qen {

class Texture;

// Supplied and owned by the game; must stay alive while a bag page lists it.
class IBagEntry {
 public:
  virtual std::uint32_t GetColor() = 0;  // 0x00RRGGBB
  virtual Texture* GetTexture() = 0;     // null: the slot keeps its own picture

 protected:
  IBagEntry() = default;
  ~IBagEntry() = default;
  IBagEntry(const IBagEntry&) = default;
  IBagEntry& operator=(const IBagEntry&) = default;
};

// What a bag slot knows of itself.
struct BagRecord {
  const float* size = nullptr;  // half width and half depth, two floats owned by the bag page
  String texture;               // file name of the slot's own picture
};

}  // namespace qen
