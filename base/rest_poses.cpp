#include "base/rest_poses.h"

#include <algorithm>
#include <cstring>

namespace qen::base {
namespace {

constexpr Pose kPlain;

}  // namespace

void RestPoses::Add(std::uint32_t node, const Pose& pose) {
  if (std::memcmp(&pose, &kPlain, sizeof pose) != 0) poses_.push_back({node, pose});
}

const Pose& RestPoses::Of(std::uint32_t node) const {
  const auto found = std::ranges::lower_bound(poses_, node, {}, &NodePose::node);
  return found != poses_.end() && found->node == node ? found->pose : kPlain;
}

void RestPoses::CopyTo(std::span<Pose> poses) const {
  std::ranges::fill(poses, kPlain);
  for (const NodePose& kept : poses_) poses[kept.node] = kept.pose;
}

}  // namespace qen::base
