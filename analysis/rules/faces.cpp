#include <unordered_set>

#include "analysis/rules/text_rules.h"
#include "analysis/words.h"
#include "base/utf.h"

namespace qen::analysis {
namespace {

void CheckFacesOf(const Source& source, Fonts& fonts, Findings& findings) {
  std::unordered_set<StringView> told;
  for (const formats::Statement& statement : source.Reading().statements) {
    const bool isFace = statement.keyword->value == formats::Value::Face && statement.value != formats::kNone;
    if (!isFace || !told.insert(source.ValueOf(statement)).second) continue;
    const base::FontRequest request = FontOf(source, statement, DefaultFont());
    const MeasuredFont* font = fonts.Find(request);
    if (font == nullptr && fonts.IsFull()) return;
    const String substitute = font == nullptr ? u"" : font->Substitute();
    if (font != nullptr && substitute.empty()) continue;
    findings.Add(Rule::MissingFace, source, statement.value,
                 Quoted(source.ValueOf(statement)) + " is not installed, " +
                     (substitute.empty() ? "and no other is" : Quoted(substitute) + " is taken instead"));
  }
}

}  // namespace

void CheckFaces(const Gui& gui, Fonts& fonts, Findings& findings) {
  if (!fonts.AreThere()) return;
  for (const Page& page : gui.pages) CheckFacesOf(*page.source, fonts, findings);
  if (gui.style != nullptr) CheckFacesOf(*gui.style, fonts, findings);
}

}  // namespace qen::analysis
