// The tree of a scene's nodes, for looking up children by name.
#pragma once

#include <vector>

#include "engine/types.h"
#include "pages/gui_parent.h"
#include "widgets/child_nodes.h"

namespace qen {

class SimpleScene;

class NodeIndex final : public IChildNodes {
 public:
  // Indexes the nodes of the scene, which must stay loaded until Clear.
  void Build(const SimpleScene& scene);
  void Clear();

  bool FindChildNode(const TMNode* parent, StringView word, TMNode*& node, std::int32_t& position) const override;
  [[nodiscard]] std::int32_t NodePosition(const TMNode* node) const override;

 private:
  [[nodiscard]] CGuiParent ParentAt(std::size_t position) const;

  const std::vector<TMNode*>* nodes_ = nullptr;  // the scene's
  std::vector<std::uint32_t> starts_;            // by node: where its children begin; one more at the end
  std::vector<std::uint32_t> children_;          // node positions: those of the first node, of the second, and so on
};

}  // namespace qen
