#include "analysis/words.h"

#include <algorithm>
#include <array>
#include <vector>

#include "base/utf.h"
#include "engine/string_converter.h"

namespace qen::analysis {

std::string Quoted(StringView word) {
  constexpr std::size_t kMost = 60;
  String shown;
  for (const Char unit : word.substr(0, kMost)) {
    if (unit == u'\n' || unit == u'\r') {
      shown += u"\\n";
    } else {
      shown += unit < u' ' ? u' ' : unit;
    }
  }
  if (word.size() > kMost) shown += u"...";
  return '"' + base::ToUtf8(shown) + '"';
}

std::size_t EditDistance(StringView a, StringView b, std::size_t most) {
  if (a.size() > b.size()) std::swap(a, b);
  if (b.size() - a.size() > most) return most + 1;
  std::array<std::vector<std::size_t>, 3> rows;  // the last but one, the last, the one being made
  for (auto& row : rows) row.resize(b.size() + 1);
  for (std::size_t j = 0; j <= b.size(); ++j) rows[1][j] = j;
  for (std::size_t i = 1; i <= a.size(); ++i) {
    std::vector<std::size_t>& row = rows[2];
    row[0] = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const std::size_t changed = rows[1][j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1);
      row[j] = std::min({changed, rows[1][j] + 1, row[j - 1] + 1});
      const bool swapped = i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1];
      if (swapped) row[j] = std::min(row[j], rows[0][j - 2] + 1);
    }
    if (*std::ranges::min_element(row) > most) return most + 1;
    std::rotate(rows.begin(), rows.begin() + 1, rows.end());
  }
  return std::min(rows[1][b.size()], most + 1);
}

StringView Nearest(StringView word, std::span<const StringView> words) {
  constexpr std::size_t kShort = 4;  // letters
  const std::size_t most = word.size() <= kShort ? 1 : 2;
  const String folded = ttolowercase(word);
  StringView nearest;
  std::size_t least = most + 1;
  for (const StringView candidate : words) {
    const std::size_t distance = EditDistance(folded, ttolowercase(candidate), most);
    if (distance >= least || candidate == word) continue;
    least = distance;
    nearest = candidate;
  }
  return nearest;
}

std::string Suggestion(StringView word, std::span<const StringView> words) {
  const StringView nearest = Nearest(word, words);
  return nearest.empty() ? "" : ", did you mean " + Quoted(nearest) + '?';
}

}  // namespace qen::analysis
