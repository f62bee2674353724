#include "pages/node_index.h"

#include <algorithm>

#include "engine/scene.h"
#include "engine/string_converter.h"

namespace qen {

void NodeIndex::Build(const SimpleScene& scene) {
  Clear();
  const std::vector<TMNode*>& nodes = scene.GetNodes();
  const std::size_t count = std::min<std::size_t>(scene.GetNumNodesInRefFile(), nodes.size());
  nodes_.assign(nodes.begin(), nodes.begin() + static_cast<std::ptrdiff_t>(count));
  parents_.reserve(count);
  loweredNames_.reserve(count);
  positions_.reserve(count);
  for (std::uint32_t i = 0; i < count; ++i) {
    const TMNode* node = nodes_[i];
    parents_.emplace_back();
    positions_.emplace(node, i);
    loweredNames_.push_back(ttolowercase(node->name));
    // Also false for a root, and for a parent behind its child, which a sound scene does not have.
    if (node->parent < i) parents_[node->parent].children.push_back(i);
  }
}

void NodeIndex::Clear() {
  positions_.clear();
  parents_.clear();
  nodes_.clear();
  loweredNames_.clear();
}

bool NodeIndex::FindChildNode(const TMNode* parent, StringView word, TMNode*& node, std::int32_t& position) const {
  node = nullptr;
  position = -1;
  const auto found = positions_.find(parent);
  if (found == positions_.end()) return false;
  const String lowered = ttolowercase(word);
  for (const std::uint32_t child : parents_[found->second].children) {
    if (!loweredNames_[child].starts_with(lowered)) continue;
    node = nodes_[child];
    position = static_cast<std::int32_t>(child);
    return true;
  }
  return false;
}

std::int32_t NodeIndex::NodePosition(const TMNode* node) const {
  const auto found = positions_.find(node);
  return found == positions_.end() ? -1 : static_cast<std::int32_t>(found->second);
}

}  // namespace qen
