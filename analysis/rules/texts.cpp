#include <algorithm>

#include "analysis/pseudo.h"
#include "analysis/rules/rule_groups.h"
#include "analysis/rules/text_rules.h"
#include "base/utf.h"
#include "formats/text_escapes.h"

namespace qen::analysis {

std::vector<SpokenLanguage> FindSpokenLanguages(const Gui& gui, const Settings& settings) {
  std::vector<SpokenLanguage> spoken;
  const auto isWanted = [&settings](const String& name) {
    return settings.languages.empty() || std::ranges::count(settings.languages, name) > 0;
  };
  bool hasPseudo = false;
  for (const Language& language : gui.languages) {
    hasPseudo = hasPseudo || language.name == kPseudoLanguage;
    if (isWanted(language.name)) spoken.push_back({base::ToUtf8(language.name), &language});
  }
  const bool wantsPseudo = std::ranges::count(settings.languages, kPseudoLanguage) > 0;
  if (wantsPseudo && !hasPseudo && !gui.languages.empty()) {
    spoken.push_back({base::ToUtf8(kPseudoLanguage), &gui.languages.front(), true});
  }
  return spoken;
}

std::optional<String> WordsOf(const Gui& gui, const SpokenLanguage& spoken, std::int32_t id) {
  const auto found = spoken.language->texts.find(id);
  if (found == spoken.language->texts.end()) return std::nullopt;
  const StringView text = gui.languageFile->ValueAt(gui.languageFile->Reading().texts[found->second].value);
  return formats::Unescaped(spoken.isPseudo ? PseudoText(text) : String(text));
}

void CheckTexts(const Gui& gui, const Settings& settings, const Backends& backends, Findings& findings) {
  const std::vector<SpokenLanguage> spoken = FindSpokenLanguages(gui, settings);
  PageTexts texts;
  for (const Page& page : gui.pages) texts.push_back(FindTextUses(page));
  CheckTextIds(gui, spoken, texts, backends.files, settings.script, findings);
  CheckRepeatedTexts(gui, findings);
  Fonts fonts(backends.fonts);
  CheckFaces(gui, fonts, findings);
  CheckTextFit(gui, spoken, texts, fonts, findings);
  CheckLetters(gui, spoken, fonts, findings);
}

}  // namespace qen::analysis
