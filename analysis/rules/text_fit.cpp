#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

#include "analysis/rules/text_rules.h"
#include "analysis/words.h"
#include "formats/text_measures.h"

namespace qen::analysis {
namespace {

constexpr float kPixel = formats::kUnitsAPixel;
constexpr float kHiddenShare = 0.35F;  // of a line: that much of the last one may be cut off, as descents mostly are
constexpr float kWidthSlack = 0.5F;    // units
constexpr std::size_t kMostMeasured = 20'000'000;  // characters, so that no GUI takes longer than a minute

std::string Units(float units) {
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%.1f", static_cast<double>(units));
  return text.data();
}

// Why the words do not fit; empty when they do.
std::string Misfit(MeasuredFont& font, const String& words, const TextBox& box) {
  const TextSize size = font.Measure(words, box.wraps ? std::max(box.width, 1.0F) / kPixel : 0.0F);
  if (size.cutsWord) return "has a word that is wider than its box, " + Units(box.width);
  const float width = size.width * kPixel;
  if (width > box.width + kWidthSlack) return "is " + Units(width) + " wide, its box " + Units(box.width);
  const float line = font.LineHeight() * kPixel;
  const float height = line * static_cast<float>(size.lines);
  if (!box.wraps || box.scrolls || height <= box.height + line * kHiddenShare) return {};
  return "takes " + std::to_string(size.lines) + (size.lines == 1 ? " line of " : " lines of ") + Units(line) +
         ", its box is " + Units(box.height) + " high";
}

void CheckUse(const Gui& gui, const std::vector<SpokenLanguage>& spoken, const Source& source, const TextUse& use,
              MeasuredFont& font, Findings& findings) {
  std::string message;
  std::string languages;
  for (const SpokenLanguage& language : spoken) {
    const std::optional<String> words = WordsOf(gui, language, use.id);
    if (!words) continue;
    const std::string misfit = Misfit(font, *words, *use.box);
    if (misfit.empty()) continue;
    if (message.empty()) message = Quoted(*words) + ' ' + misfit;
    languages += (languages.empty() ? "" : ", ") + language.name;
  }
  if (!message.empty()) findings.Add(Rule::TextTooLong, source, use.value, message + " (" + languages + ')');
}

}  // namespace

void CheckTextFit(const Gui& gui, const std::vector<SpokenLanguage>& spoken, const PageTexts& texts, Fonts& fonts,
                  Findings& findings) {
  for (std::size_t page = 0; page < texts.size(); ++page) {
    for (const TextUse& use : texts[page]) {
      if (!use.box) continue;
      if (fonts.Measured() > kMostMeasured) return;
      if (MeasuredFont* font = fonts.Find(use.font))
        CheckUse(gui, spoken, *gui.pages[page].source, use, *font, findings);
    }
  }
}

}  // namespace qen::analysis
