// The names of a scene's nodes, for finding nodes by them.
#pragma once

#include <cstdint>
#include <vector>

#include "engine/scene_node.h"

namespace qen::base {

class NodeNames {
 public:
  // `nodes` are those of the scene, whose names are from here.
  explicit NodeNames(const std::vector<TMNode>& nodes) : nodes_(nodes) {}

  // Room for so many names, and for all their characters without the zeros behind them.
  void Reserve(std::size_t names, std::size_t characters);

  // A copy with a zero behind it that stays until Clear. Only what was reserved.
  StringView Keep(StringView name);

  // Makes the node findable. Its name has been set; of several nodes with one name the first is found.
  void Add(const TMNode& node);

  [[nodiscard]] const TMNode* Find(StringView name) const;  // null when there is none
  void Clear();

 private:
  struct Slot {
    std::size_t index;
    std::uint8_t tag;
  };

  // Where the name is in the table, or would be.
  [[nodiscard]] Slot SlotOf(StringView name) const;

  const std::vector<TMNode>& nodes_;
  String characters_;

  // A table by the names' hashes, never full. The tag is a part of the hash, 0 where the table is free: few bytes to
  // look through, and hardly a name is compared with one that is another.
  std::vector<std::uint8_t> tags_;
  std::vector<std::uint32_t> positions_;
};

}  // namespace qen::base
