#include "analysis/pseudo.h"

#include "formats/text_escapes.h"

namespace qen::analysis {
namespace {

constexpr StringView kLetters = u"aAcCdDeEgGhHiIjJkKlLnNoOrRsStTuUwWyYzZ";
constexpr StringView kAccentedLetters =
    u"\u00E5\u00C5\u00E7\u00C7\u010F\u010E\u00E9\u00C9\u011F\u011E\u0125\u0124\u00EE\u00CE\u0135\u0134"
    u"\u0137\u0136\u013A\u0139\u00F1\u00D1\u00F6\u00D6\u0155\u0154\u0161\u0160\u0165\u0164\u00FC\u00DC"
    u"\u0175\u0174\u00FD\u00DD\u017E\u017D";
static_assert(kLetters.size() == kAccentedLetters.size());

constexpr StringView kVowels = u"aeiouAEIOU";
constexpr StringView kFiller = u" \u00E9\u00EE\u00F6\u00FC";

Char Accented(Char c) {
  const std::size_t at = kLetters.find(c);
  return at == StringView::npos ? c : kAccentedLetters[at];
}

}  // namespace

String PseudoText(StringView text) {
  String longer;
  std::size_t shown = 0;  // characters without their escapes
  std::size_t added = 0;
  for (std::size_t i = 0; i < text.size(); ++i, ++shown) {
    if (text[i] == formats::kEscape && i + 1 < text.size()) {
      longer += text[i++];
      longer += text[i];
      continue;
    }
    longer += Accented(text[i]);
    // Vowels are doubled, so that words become longer, not only texts.
    if (kVowels.find(text[i]) == StringView::npos) continue;
    longer += Accented(text[i]);
    ++added;
  }
  const std::size_t wanted = (shown * 2 + 4) / 5;
  for (std::size_t i = 0; added < wanted; ++i, ++added) longer += kFiller[i % kFiller.size()];
  return longer;
}

}  // namespace qen::analysis
