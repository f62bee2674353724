#include "analysis/rules/word_homes.h"

#include <algorithm>
#include <array>

#include "analysis/words.h"
#include "engine/string_converter.h"
#include "formats/definition_words.h"

namespace qen::analysis {
namespace {

using formats::Scope;
namespace word = formats::word;

struct Home {
  Scope scope;
  const char* name;
};
constexpr std::array<Home, 5> kHomes{{
    {Scope::PageHeader, "the header of a page"},
    {Scope::Item, "an item block"},
    {Scope::Entry, "a listitem block"},
    {Scope::Font, "a font block"},
    {Scope::Description, "the GUI description"},
}};

// Words that readers take beside their tables.
struct ExtraWord {
  Scope scope;
  StringView word;
};
constexpr std::array<ExtraWord, 6> kExtraWords{{
    {Scope::PageHeader, word::kItem},
    {Scope::PageHeader, word::kName},
    {Scope::BagHeader, word::kItem},
    {Scope::BagHeader, word::kName},
    {Scope::Section, word::kLang},
    {Scope::Section, word::kTextPrefix},
}};

}  // namespace

const char* HomeOf(StringView word) {
  if (word == word::kItem) return "a page, outside of blocks";
  const auto* found = std::ranges::find_if(
      kHomes, [word](const Home& home) { return formats::TablesOf(home.scope).Find(word) != nullptr; });
  return found == kHomes.end() ? nullptr : found->name;
}

std::vector<StringView> WordsOf(Scope scope) {
  std::vector<StringView> words;
  const formats::Tables tables = formats::TablesOf(scope);
  for (const auto table : {tables.first, tables.second}) {
    for (const formats::Keyword& keyword : table) words.push_back(keyword.word);
  }
  for (const ExtraWord& extra : kExtraWords) {
    if (extra.scope == scope) words.push_back(extra.word);
  }
  return words;
}

StringView OnlyNearest(StringView word, const std::vector<StringView>& words) {
  const String folded = ttolowercase(word);
  StringView nearest;
  for (const StringView candidate : words) {
    if (EditDistance(folded, candidate, 1) > 1) continue;
    if (!nearest.empty()) return {};
    nearest = candidate;
  }
  return nearest;
}

}  // namespace qen::analysis
