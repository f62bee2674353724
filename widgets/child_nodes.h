// How widgets find the nodes below their own.
#pragma once

#include <cstdint>

#include "engine/types.h"

namespace qen {

struct TMNode;

class IChildNodes {
 public:
  // The first direct child of `parent` whose name begins with the word, letter case aside, and its position among the
  // scene's nodes. On a miss false, null and -1.
  virtual bool FindChildNode(const TMNode* parent, StringView word, TMNode*& node, std::int32_t& position) const = 0;

  // The position of a node among the scene's nodes, -1 when it is not one of them.
  [[nodiscard]] virtual std::int32_t NodePosition(const TMNode* node) const = 0;

 protected:
  IChildNodes() = default;
  ~IChildNodes() = default;
  IChildNodes(const IChildNodes&) = default;
  IChildNodes& operator=(const IChildNodes&) = default;
};

}  // namespace qen
