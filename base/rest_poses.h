// How a scene's nodes stand when no animation moves them.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "base/pose.h"

namespace qen::base {

// Most nodes stand just where their parents do, and take no room.
class RestPoses {
 public:
  void Add(std::uint32_t node, const Pose& pose);  // in the order of the nodes
  void Shrink() { poses_.shrink_to_fit(); }
  void Clear() { poses_ = {}; }

  [[nodiscard]] const Pose& Of(std::uint32_t node) const;
  void CopyTo(std::span<Pose> poses) const;  // one a node

 private:
  struct NodePose {
    std::uint32_t node;
    Pose pose;
  };

  std::vector<NodePose> poses_;
};

}  // namespace qen::base
