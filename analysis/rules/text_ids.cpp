#include <algorithm>
#include <set>
#include <unordered_map>
#include <unordered_set>

#include "analysis/rules/text_rules.h"
#include "engine/string_converter.h"
#include "formats/definition_words.h"

namespace qen::analysis {
namespace {

struct FirstUse {
  const Source* source = nullptr;
  std::size_t token = formats::kNone;
};

// Where each id is used first, in the order of pages.
std::vector<std::pair<std::int32_t, FirstUse>> FindFirstUses(const Gui& gui, const PageTexts& texts) {
  std::unordered_set<std::int32_t> known;
  std::vector<std::pair<std::int32_t, FirstUse>> uses;
  for (std::size_t page = 0; page < texts.size(); ++page) {
    for (const TextUse& use : texts[page]) {
      if (known.insert(use.id).second) uses.push_back({use.id, {gui.pages[page].source.get(), use.value}});
    }
  }
  return uses;
}

// The whole numbers of a script, any of which may be a text's id.
std::unordered_set<std::int32_t> NumbersOf(base::IFileBackend& files, const String& script) {
  std::vector<std::uint8_t> bytes;
  std::unordered_set<std::int32_t> numbers;
  if (script.empty() || !files.Read(script, bytes)) return numbers;
  const auto isDigit = [](std::uint8_t byte) { return byte >= '0' && byte <= '9'; };
  for (auto at = bytes.begin(); (at = std::find_if(at, bytes.end(), isDigit)) != bytes.end();) {
    const auto end = std::find_if_not(at, bytes.end(), isDigit);
    numbers.insert(StringConverter::ParseInt(String(at, end)));
    at = end;
  }
  return numbers;
}

std::string Joined(const std::vector<std::string>& names) {
  std::string joined;
  for (const std::string& name : names) joined += (joined.empty() ? "" : ", ") + name;
  return joined;
}

std::vector<std::string> LanguagesWithout(const std::vector<SpokenLanguage>& spoken, std::int32_t id) {
  std::vector<std::string> without;
  for (const SpokenLanguage& language : spoken) {
    if (!language.isPseudo && !language.language->texts.contains(id)) without.push_back(language.name);
  }
  return without;
}

class TextIds {
 public:
  TextIds(const Gui& gui, const std::vector<SpokenLanguage>& spoken, Findings& findings)
      : gui_(gui), spoken_(spoken), findings_(findings) {}

  void CheckUsed(const std::vector<std::pair<std::int32_t, FirstUse>>& uses) {
    for (const auto& [id, use] : uses) {
      used_.insert(id);
      const std::vector<std::string> without = LanguagesWithout(spoken_, id);
      if (without.empty()) continue;
      const std::string text = " text " + std::to_string(id);
      const bool nowhere = without.size() == spoken_.size();
      findings_.Add(Rule::MissingText, *use.source, use.token,
                    nowhere && without.size() > 1 ? "no language has the" + text
                                                  : "there is no" + text + " in " + Joined(without));
    }
  }

  // An id is told of where the first language has it.
  void CheckUnused(const std::unordered_set<std::int32_t>& numbers) {
    std::unordered_set<std::int32_t> told;
    const formats::Reading& reading = gui_.languageFile->Reading();
    for (const Language& language : gui_.languages) {
      // In the order of the file.
      const std::set<std::size_t> entries = EntriesOf(language);
      for (const std::size_t entry : entries) {
        const formats::TextEntry& text = reading.texts[entry];
        if (!used_.contains(text.id) && told.insert(text.id).second) CheckUnusedText(text, numbers);
      }
    }
  }

 private:
  static std::set<std::size_t> EntriesOf(const Language& language) {
    std::set<std::size_t> entries;
    for (const auto& [id, entry] : language.texts) entries.insert(entry);
    return entries;
  }

  void CheckUnusedText(const formats::TextEntry& text, const std::unordered_set<std::int32_t>& numbers) {
    const std::string id = std::to_string(text.id);
    const std::vector<std::string> without = LanguagesWithout(spoken_, text.id);
    if (!without.empty()) {
      findings_.Add(Rule::UntranslatedText, *gui_.languageFile, text.word,
                    "text " + id + " is missing in " + Joined(without));
    } else if (!numbers.contains(text.id)) {
      findings_.Add(Rule::UnusedText, *gui_.languageFile, text.word, "no definition shows text " + id);
    }
  }

  const Gui& gui_;
  const std::vector<SpokenLanguage>& spoken_;
  Findings& findings_;
  std::unordered_set<std::int32_t> used_;
};

bool HasFirstLanguage(const Gui& gui) {
  return std::ranges::count(gui.languages, formats::kFirstLanguage, &Language::name) > 0;
}

}  // namespace

void CheckTextIds(const Gui& gui, const std::vector<SpokenLanguage>& spoken, const PageTexts& texts,
                  base::IFileBackend& files, const String& script, Findings& findings) {
  const auto uses = FindFirstUses(gui, texts);
  if (gui.languageFile == nullptr || gui.languages.empty()) {
    if (uses.empty() || gui.hasLanguageStatement) return;
    findings.Add(Rule::MissingText, *uses[0].second.source, uses[0].second.token,
                 "there is no language file, so no text has words");
    return;
  }
  if (!HasFirstLanguage(gui)) {
    findings.Add(Rule::MissingText, *gui.languageFile, gui.languages.front().section,
                 "there is no language english, which is loaded first");
  }
  TextIds ids(gui, spoken, findings);
  ids.CheckUsed(uses);
  if (IsComplete(gui)) ids.CheckUnused(NumbersOf(files, script));
}

void CheckRepeatedTexts(const Gui& gui, Findings& findings) {
  if (gui.languageFile == nullptr) return;
  const Source& source = *gui.languageFile;
  const formats::Reading& reading = source.Reading();
  std::unordered_map<String, std::unordered_set<std::int32_t>> known;
  for (const formats::TextEntry& text : reading.texts) {
    const std::size_t name = reading.blocks[text.block].name;
    if (name == formats::kNone || text.value == formats::kNone) continue;
    if (known[String(source.ValueAt(name))].insert(text.id).second) continue;
    findings.Add(Rule::RepeatedText, source, text.word,
                 "the section has a text " + std::to_string(text.id) + " already, which counts");
  }
}

}  // namespace qen::analysis
