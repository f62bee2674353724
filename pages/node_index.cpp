#include "pages/node_index.h"

#include <algorithm>
#include <numeric>
#include <span>

#include "engine/scene.h"
#include "engine/string_converter.h"

namespace qen {
namespace {

constexpr Char kFirstBeyondAscii = 0x80;

Char LowerAscii(Char c) { return c >= u'A' && c <= u'Z' ? static_cast<Char>(c - u'A' + u'a') : c; }

// Letter case aside.
bool StartsWith(StringView name, StringView word) {
  if (name.size() < word.size()) return false;
  for (std::size_t i = 0; i < word.size(); ++i) {
    if (name[i] == word[i]) continue;
    const bool isAscii = name[i] < kFirstBeyondAscii && word[i] < kFirstBeyondAscii;
    if (!isAscii) return ttolowercase(name.substr(0, word.size())) == ttolowercase(word);
    if (LowerAscii(name[i]) != LowerAscii(word[i])) return false;
  }
  return true;
}

}  // namespace

void NodeIndex::Build(const SimpleScene& scene) {
  Clear();
  nodes_ = &scene.GetNodes();
  const std::size_t count = std::min<std::size_t>(scene.GetNumNodesInRefFile(), nodes_->size());
  const std::span nodes = std::span(*nodes_).first(count);
  // False for a root, and for a parent behind its child, which a sound scene does not have.
  const auto isChild = [&nodes](std::size_t i) { return nodes[i]->parent < i; };
  starts_.assign(count + 1, 0);
  for (std::size_t i = 0; i < count; ++i) {
    if (isChild(i)) ++starts_[nodes[i]->parent];
  }
  std::inclusive_scan(starts_.begin(), starts_.end(), starts_.begin());
  children_.resize(starts_.back());
  // From the last one, so that each start, which is the end of its children still, comes to be where they begin.
  for (std::size_t i = count; i-- > 0;) {
    if (isChild(i)) children_[--starts_[nodes[i]->parent]] = static_cast<std::uint32_t>(i);
  }
}

void NodeIndex::Clear() {
  nodes_ = nullptr;
  starts_.clear();
  children_.clear();
}

CGuiParent NodeIndex::ParentAt(std::size_t position) const {
  return CGuiParent(std::span(children_).subspan(starts_[position], starts_[position + 1] - starts_[position]));
}

bool NodeIndex::FindChildNode(const TMNode* parent, StringView word, TMNode*& node, std::int32_t& position) const {
  node = nullptr;
  position = -1;
  const std::int32_t parentPosition = NodePosition(parent);
  if (parentPosition < 0) return false;
  for (const std::uint32_t child : ParentAt(static_cast<std::size_t>(parentPosition)).children) {
    if (!StartsWith((*nodes_)[child]->name, word)) continue;
    node = (*nodes_)[child];
    position = static_cast<std::int32_t>(child);
    return true;
  }
  return false;
}

std::int32_t NodeIndex::NodePosition(const TMNode* node) const {
  const bool known = node != nullptr && nodes_ != nullptr && std::size_t{node->position} + 1 < starts_.size() &&
                     (*nodes_)[node->position] == node;
  return known ? static_cast<std::int32_t>(node->position) : -1;
}

}  // namespace qen
