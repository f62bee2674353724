// What stands in each block of a definition file.
#pragma once

#include <span>
#include <vector>

#include "analysis/source.h"

namespace qen::analysis {

class BlockIndex {
 public:
  explicit BlockIndex(const Source& source);

  // Positions of statements, and of the blocks that are directly inside.
  [[nodiscard]] std::span<const std::size_t> StatementsOf(std::size_t block) const {
    return entries_[block].statements;
  }
  [[nodiscard]] std::span<const std::size_t> InnerOf(std::size_t block) const { return entries_[block].inner; }

 private:
  struct Entry {
    std::vector<std::size_t> statements;
    std::vector<std::size_t> inner;
  };

  std::vector<Entry> entries_;
};

}  // namespace qen::analysis
