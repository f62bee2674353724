// The children of one scene node.
#pragma once

#include <cstdint>
#include <vector>

namespace qen {

class CGuiParent {
 public:
  CGuiParent() = default;
  CGuiParent(const CGuiParent&) = default;
  CGuiParent(CGuiParent&&) = default;
  CGuiParent& operator=(const CGuiParent&) = default;
  CGuiParent& operator=(CGuiParent&&) = default;
  virtual ~CGuiParent() = default;

  std::vector<std::uint32_t> children;  // node positions, growing
};

}  // namespace qen
