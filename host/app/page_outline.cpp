#include "host/app/page_outline.h"

#include <span>

#include "formats/definition_syntax.h"
#include "formats/definition_words.h"

namespace qen::host {
namespace {

// A keyword that may stand in an item block, or in a block inside of it; null for another word.
const formats::Keyword* FindInBlocks(StringView word) {
  using Keywords = std::span<const formats::Keyword>;
  for (const Keywords keywords :
       {Keywords(formats::kItem), Keywords(formats::kText), Keywords(formats::kEntry), Keywords(formats::kFont)}) {
    if (const formats::Keyword* found = formats::Find(keywords, word)) return found;
  }
  return nullptr;
}

}  // namespace

PageOutline OutlineOf(const std::vector<String>& tokens) {
  PageOutline outline;
  int depth = 0;  // of blocks
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    const String& word = tokens[i];
    const bool isItem = depth == 0 && word == formats::word::kItem;
    // A value may look like a keyword.
    const formats::Keyword* keyword = depth == 0 ? formats::Find(formats::kPageHeader, word) : FindInBlocks(word);
    const bool hasValue = isItem || (keyword != nullptr && keyword->value != formats::Value::Block);
    if (depth > 0 && word == formats::kClose) --depth;
    if (isItem || (keyword != nullptr && formats::OpensBlock(*keyword))) ++depth;
    if (!hasValue) continue;
    if (++i == tokens.size()) {
      outline.unfinished = word;
    } else if (isItem) {
      outline.items.push_back(tokens[i]);
    }
  }
  return outline;
}

}  // namespace qen::host
