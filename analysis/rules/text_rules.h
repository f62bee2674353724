// The rules of texts, by what they look at.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "analysis/findings.h"
#include "analysis/fonts.h"
#include "analysis/gui_model.h"
#include "analysis/text_uses.h"

namespace qen::analysis {

// A language whose words are looked at.
struct SpokenLanguage {
  std::string name;  // UTF-8
  const Language* language = nullptr;
  bool isPseudo = false;
};

// Those that the settings ask for and the file has.
std::vector<SpokenLanguage> FindSpokenLanguages(const Gui& gui, const Settings& settings);

// Nothing when the language has no such text.
std::optional<String> WordsOf(const Gui& gui, const SpokenLanguage& spoken, std::int32_t id);

using PageTexts = std::vector<std::vector<TextUse>>;  // by page

// Of ids: without words, twice, not translated, not used.
void CheckTextIds(const Gui& gui, const std::vector<SpokenLanguage>& spoken, const PageTexts& texts,
                  base::IFileBackend& files, const String& script, Findings& findings);
void CheckRepeatedTexts(const Gui& gui, Findings& findings);

// Of words and their boxes.
void CheckTextFit(const Gui& gui, const std::vector<SpokenLanguage>& spoken, const PageTexts& texts, Fonts& fonts,
                  Findings& findings);

void CheckLetters(const Gui& gui, const std::vector<SpokenLanguage>& spoken, Fonts& fonts, Findings& findings);
void CheckFaces(const Gui& gui, Fonts& fonts, Findings& findings);

}  // namespace qen::analysis
