// Nodes that somebody has moved, such as the slider of a slide bar, on the way of an animation.
#pragma once

#include <cstddef>
#include <unordered_map>

#include "engine/matrix.h"

namespace qen::base {

// Where a node was put counts from its rest pose: an animation that moves the node, or one above it, carries it along.
class CarriedNodes {
 public:
  // From now on the node stands at `place` when its animation has it at `rest`. World matrices, like all here.
  void Put(std::size_t node, const Matrix4x4& place, const Matrix4x4& rest);

  [[nodiscard]] bool Has(std::size_t node) const { return nodes_.contains(node); }

  // Where a node that was put stands when its animation has it at `animated`.
  [[nodiscard]] Matrix4x4 Carry(std::size_t node, const Matrix4x4& animated) const;

 private:
  struct Node {
    Matrix4x4 place;
    Matrix4x4 rest;
    Matrix4x4 fromRest;  // to `place`, in the space of the resting node
  };

  std::unordered_map<std::size_t, Node> nodes_;
};

}  // namespace qen::base
