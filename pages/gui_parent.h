// The children of one scene node.
#pragma once

#include <cstdint>
#include <span>

namespace qen {

class CGuiParent {
 public:
  explicit CGuiParent(std::span<const std::uint32_t> positions) : children(positions) {}
  CGuiParent(const CGuiParent&) = default;
  CGuiParent(CGuiParent&&) = default;
  CGuiParent& operator=(const CGuiParent&) = default;
  CGuiParent& operator=(CGuiParent&&) = default;
  virtual ~CGuiParent() = default;

  std::span<const std::uint32_t> children;  // node positions, growing; the index's
};

}  // namespace qen
