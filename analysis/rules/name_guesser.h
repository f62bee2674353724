// Guesses which of many names a wrong one means.
#pragma once

#include <unordered_map>
#include <vector>

#include "engine/types.h"

namespace qen::analysis {

struct Guess {
  StringView name = {};      // empty for none
  bool isCaseAlone = false;  // letter case is all that is wrong, and no other name is meant
};

// Looking through all names is for the first wrong ones; later ones are still known by all but their letter case.
class NameGuesser {
 public:
  // The names must outlive it.
  explicit NameGuesser(std::vector<StringView> names);

  Guess Find(StringView wrong);

 private:
  std::vector<StringView> names_;
  std::unordered_map<String, StringView> folded_;  // empty where several differ in case alone
  std::size_t looked_ = 0;
};

}  // namespace qen::analysis
