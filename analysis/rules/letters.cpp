#include <array>
#include <cstdio>
#include <set>
#include <unordered_map>

#include "analysis/rules/text_rules.h"
#include "analysis/words.h"
#include "formats/utf8.h"

namespace qen::analysis {
namespace {

std::string NameOf(char32_t c) {
  std::array<char, 16> code{};
  std::snprintf(code.data(), code.size(), "U+%04X", static_cast<unsigned>(c));
  return code.data();
}

// All characters of all texts against the fonts, each asked for once.
class Letters {
 public:
  explicit Letters(MeasuredFont& font) : font_(font) {}

  // The names of those that are missing.
  std::string MissingOf(StringView text) {
    std::set<char32_t> missing;
    for (std::size_t i = 0; i < text.size();) {
      const char32_t c = formats::TakeCharacter(text, i);
      if (c >= U' ' && !Has(c)) missing.insert(c);
    }
    std::string names;
    for (const char32_t c : missing) names += (names.empty() ? "" : ", ") + NameOf(c);
    return names;
  }

 private:
  bool Has(char32_t c) {
    const auto [known, isNew] = known_.try_emplace(c, true);
    if (isNew) known->second = font_.Has(c);
    return known->second;
  }

  MeasuredFont& font_;
  std::unordered_map<char32_t, bool> known_;
};

}  // namespace

void CheckLetters(const Gui& gui, const std::vector<SpokenLanguage>& spoken, Fonts& fonts, Findings& findings) {
  // Whatever the font, what it lacks is looked for in all that are installed.
  MeasuredFont* font = fonts.Find(DefaultFont());
  if (font == nullptr || gui.languageFile == nullptr) return;
  Letters letters(*font);
  const Source& source = *gui.languageFile;
  for (const SpokenLanguage& language : spoken) {
    if (language.isPseudo) continue;
    for (const auto& [id, entry] : language.language->texts) {
      const std::size_t value = source.Reading().texts[entry].value;
      const std::string missing = letters.MissingOf(source.ValueAt(value));
      if (!missing.empty())
        findings.Add(Rule::MissingLetters, source, value,
                     "no font here has " + missing + " of text " + std::to_string(id));
    }
  }
}

}  // namespace qen::analysis
