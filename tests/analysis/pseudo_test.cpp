#include "analysis/pseudo.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "formats/text_escapes.h"

namespace qen::analysis {
namespace {

TEST(PseudoLanguage, IsTwoFifthsLongerAndHasNoPlainVowelsAndAllLines) {
  for (const StringView text : {u"Continue", u"OK", u"", u"xyz", u"日本語", u"Two\\nlines\\tand \\\\n", u"5"}) {
    const String pseudo = PseudoText(text);
    const String before = formats::Unescaped(text);
    const String after = formats::Unescaped(pseudo);
    EXPECT_GE(5 * after.size(), 7 * before.size());
    EXPECT_EQ(after.find_first_of(u"aeiouAEIOU"), String::npos);
    for (const Char kept : {u'\n', u'\t', u'\\'}) {
      EXPECT_EQ(std::ranges::count(after, kept), std::ranges::count(before, kept));
    }
  }
}

}  // namespace
}  // namespace qen::analysis
