#include "engine/string_converter.h"

namespace qen {

std::vector<String> SplitString(StringView text, StringView separators, std::uint32_t maxSplits) {
  std::vector<String> pieces;
  if (text.empty()) return pieces;
  std::size_t start = 0;
  while (maxSplits == 0 || pieces.size() < maxSplits) {
    const std::size_t cut = text.find_first_of(separators, start);
    if (cut == StringView::npos) break;
    pieces.emplace_back(text.substr(start, cut - start));
    start = cut + 1;
  }
  pieces.emplace_back(text.substr(start));
  return pieces;
}

}  // namespace qen
