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
  parents_.resize(count);
  for (std::uint32_t i = 0; i < count; ++i) {
    const std::uint32_t parent = nodes_[i]->parent;
    // Also false for a root, and for a parent behind its child, which a sound scene does not have.
    if (parent < i) parents_[parent].children.push_back(i);
  }
}

void NodeIndex::Clear() {
  parents_.clear();
  nodes_.clear();
}

bool NodeIndex::FindChildNode(const TMNode* parent, StringView word, TMNode*& node, std::int32_t& position) const {
  node = nullptr;
  position = -1;
  const std::int32_t parentPosition = NodePosition(parent);
  if (parentPosition < 0) return false;
  const String lowered = ttolowercase(word);
  for (const std::uint32_t child : parents_[static_cast<std::size_t>(parentPosition)].children) {
    if (ttolowercase(StringView(nodes_[child]->name).substr(0, word.size())) != lowered) continue;
    node = nodes_[child];
    position = static_cast<std::int32_t>(child);
    return true;
  }
  return false;
}

std::int32_t NodeIndex::NodePosition(const TMNode* node) const {
  const bool known = node != nullptr && node->position < nodes_.size() && nodes_[node->position] == node;
  return known ? static_cast<std::int32_t>(node->position) : -1;
}

}  // namespace qen
