#include "analysis/block_index.h"

namespace qen::analysis {

BlockIndex::BlockIndex(const Source& source) : entries_(source.Reading().blocks.size()) {
  const formats::Reading& reading = source.Reading();
  for (std::size_t i = 0; i < reading.statements.size(); ++i)
    entries_[reading.statements[i].block].statements.push_back(i);
  for (std::size_t i = 0; i < reading.blocks.size(); ++i) {
    if (reading.blocks[i].parent != formats::kNone) entries_[reading.blocks[i].parent].inner.push_back(i);
  }
}

}  // namespace qen::analysis
