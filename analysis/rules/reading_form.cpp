// What a page's file begins with, how its items are named, and values that are keywords.
#include "analysis/rules/reading_pass.h"
#include "analysis/words.h"
#include "formats/definition_words.h"
#include "formats/widget_kinds.h"

namespace qen::analysis {
namespace {

using formats::FileKind;
using formats::kNone;
using formats::Scope;
namespace word = formats::word;

bool IsPageOrBag(const Source& source) { return source.Kind() == FileKind::Page || source.Kind() == FileKind::Bag; }

void CheckFirstWord(ReadingPass& pass) {
  const Source& source = pass.source;
  const formats::Reading& reading = source.Reading();
  if (!IsPageOrBag(source)) return;
  if (reading.tokens.empty()) {
    pass.findings.AddFault(Rule::NoNameFirst, source, formats::Range16{0, 0},
                           "the file is empty: it must begin with name and a scene");
    return;
  }
  const bool isNamed = !reading.statements.empty() && reading.statements[0].keyword->value == formats::Value::Scene;
  if (isNamed) return;
  pass.findings.AddFault(Rule::NoNameFirst, source, 0, "the first word must be name, with the page's scene behind it");
  if (!reading.strays.empty() && reading.strays[0].word == 0) pass.told[0] = true;
}

void CheckItemNames(ReadingPass& pass) {
  for (const formats::Block& block : pass.source.Reading().blocks) {
    if (block.scope != Scope::Item || block.name == kNone || pass.told[block.name]) continue;
    const StringView name = pass.source.ValueAt(block.name);
    if (name.front() == formats::kWidgetMark) continue;
    pass.Tell(Rule::ItemWithoutMark, block.name, "the widget's name " + Quoted(name) + " does not begin with ~");
  }
}

void TellKeyword(ReadingPass& pass, std::size_t value, const char* as) {
  pass.Tell(Rule::ValueAsKeyword, value, Quoted(pass.source.ValueAt(value)) + " is taken for " + as + ", too");
}

// A page's header is looked for in all of the file.
void CheckHeaderWords(ReadingPass& pass, std::size_t value) {
  if (value == kNone || pass.told[value] || !IsPageOrBag(pass.source)) return;
  const formats::Tables header = formats::TablesOf(pass.source.Reading().blocks[0].scope);
  if (header.Find(pass.source.ValueAt(value)) != nullptr) TellKeyword(pass, value, "a word of the header");
}

void CheckValuesAsKeywords(ReadingPass& pass) {
  const formats::Reading& reading = pass.source.Reading();
  for (const formats::Statement& statement : reading.statements) {
    if (statement.isChained) TellKeyword(pass, statement.word, "a keyword");
    if (statement.block != 0) CheckHeaderWords(pass, statement.value);
  }
  for (const formats::TextEntry& text : reading.texts) {
    if (text.value == kNone || pass.source.ValueAt(text.value) != word::kLang) continue;
    TellKeyword(pass, text.value, "the beginning of a section by readers of other languages");
  }
}

}  // namespace

void CheckForm(ReadingPass& pass) {
  CheckFirstWord(pass);
  CheckItemNames(pass);
  CheckValuesAsKeywords(pass);
}

}  // namespace qen::analysis
