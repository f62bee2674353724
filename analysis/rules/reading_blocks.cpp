// Blocks that are not closed.

#include "analysis/rules/reading_pass.h"
#include "analysis/words.h"
#include "formats/definition_syntax.h"

namespace qen::analysis {
namespace {

using formats::Block;
using formats::kNone;

void TellUnclosed(ReadingPass& pass, const Block& block) {
  if (pass.told[block.opener]) return;
  const std::size_t shown = block.name != kNone ? block.name : block.opener;
  const char* what = block.brace == kNone ? " has no block in braces" : " has a block that is not closed";
  pass.Tell(Rule::UnclosedBlock, block.opener, Quoted(pass.source.ValueAt(shown)) + what);
}

// The block inside, the last one, by which this one is not closed; none when it is this one's own mistake.
std::size_t CauseInside(const std::vector<Block>& blocks, std::size_t inside) {
  if (inside == kNone) return kNone;
  const bool tookBrace = blocks[inside].close != kNone && blocks[inside].brace == kNone;
  return tookBrace || blocks[inside].close == kNone ? inside : kNone;
}

// Of each block whether a brace in it opens nothing: it has taken the one that would close the block.
std::vector<bool> HaveStrayOpen(const Source& source) {
  std::vector<bool> have(source.Reading().blocks.size());
  for (const formats::Stray& stray : source.Reading().strays) {
    const formats::Token& token = source.TokenAt(stray.word);
    if (!token.isQuoted && token.value == formats::kOpen) have[stray.block] = true;
  }
  return have;
}

}  // namespace

void CheckBlocks(ReadingPass& pass) {
  const std::vector<Block>& blocks = pass.source.Reading().blocks;
  const std::vector<bool> haveStrayOpen = HaveStrayOpen(pass.source);
  std::vector<std::size_t> lastInside(blocks.size(), kNone);
  for (std::size_t i = 1; i < blocks.size(); ++i) lastInside[blocks[i].parent] = i;
  for (std::size_t i = 1; i < blocks.size(); ++i) {
    if (blocks[i].close != kNone || haveStrayOpen[i]) continue;
    const std::size_t cause = CauseInside(blocks, lastInside[i]);
    TellUnclosed(pass, blocks[cause == kNone ? i : cause]);
  }
}

}  // namespace qen::analysis
