// A snapshot of the two page lists.
#pragma once

#include <cstdint>
#include <vector>

namespace qen {

class CGuiUndo {
 public:
  CGuiUndo(std::vector<std::uint32_t> active, std::vector<std::uint32_t> render)
      : activePages(std::move(active)), renderPages(std::move(render)) {}
  CGuiUndo(const CGuiUndo&) = default;
  CGuiUndo(CGuiUndo&&) = default;
  CGuiUndo& operator=(const CGuiUndo&) = default;
  CGuiUndo& operator=(CGuiUndo&&) = default;
  virtual ~CGuiUndo() = default;

  std::vector<std::uint32_t> activePages;
  std::vector<std::uint32_t> renderPages;
};

}  // namespace qen
