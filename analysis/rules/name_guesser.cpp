#include "analysis/rules/name_guesser.h"

#include <utility>

#include "analysis/words.h"
#include "engine/string_converter.h"

namespace qen::analysis {

NameGuesser::NameGuesser(std::vector<StringView> names) : names_(std::move(names)) {
  for (const StringView name : names_) {
    const auto [place, isNew] = folded_.try_emplace(ttolowercase(name), name);
    if (!isNew) place->second = {};
  }
}

Guess NameGuesser::Find(StringView wrong) {
  constexpr std::size_t kMost = 100;
  const auto found = folded_.find(ttolowercase(wrong));
  if (found != folded_.end() && !found->second.empty()) return {found->second, true};
  if (looked_++ >= kMost) return {};
  return {Nearest(wrong, names_), false};
}

}  // namespace qen::analysis
