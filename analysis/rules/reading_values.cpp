// Values: whether they are there, and of the form and range that their keywords ask for.
#include "analysis/number_forms.h"
#include "analysis/rules/reading_pass.h"
#include "analysis/words.h"
#include "formats/definition_words.h"

namespace qen::analysis {
namespace {

using formats::kNone;
using formats::ValueState;
namespace word = formats::word;

void TellNumber(ReadingPass& pass, std::size_t token, NumberCheck check) {
  if (check.fault == NumberFault::None) return;
  pass.Tell(check.fault == NumberFault::Wrong ? Rule::WrongValue : Rule::OutOfRange, token, std::move(check.message));
}

void TellMissing(ReadingPass& pass, std::size_t token, const char* what) {
  pass.Tell(Rule::MissingValue, token, Quoted(pass.source.ValueAt(token)) + " has no " + what);
}

void CheckStatement(ReadingPass& pass, const formats::Statement& statement) {
  if (pass.told[statement.word]) return;
  if (statement.state == ValueState::Missing) {
    TellMissing(pass, statement.word, "value");
  } else if (statement.state == ValueState::Read && !pass.told[statement.value]) {
    TellNumber(pass, statement.value, CheckNumber(*statement.keyword, pass.source.ValueOf(statement)));
  }
}

StringView IdOf(const Source& source, std::size_t token) {
  return source.ValueAt(token).substr(word::kTextPrefix.size());
}

// Whether the entry has taken the next one's word for its text.
bool TakesNext(const Source& source, const formats::TextEntry& text) {
  if (source.TokenAt(text.value).isQuoted || !source.ValueAt(text.value).starts_with(word::kTextPrefix)) return false;
  return CheckTextNumber(IdOf(source, text.value)).fault == NumberFault::None;
}

void CheckEntry(ReadingPass& pass, const formats::TextEntry& text) {
  if (text.value == kNone || TakesNext(pass.source, text)) {
    TellMissing(pass, text.word, "text");
    if (text.value != kNone) pass.told[text.value] = true;
    return;
  }
  TellNumber(pass, text.word, CheckTextNumber(IdOf(pass.source, text.word)));
}

}  // namespace

void CheckValues(ReadingPass& pass) {
  const formats::Reading& reading = pass.source.Reading();
  for (const formats::Statement& statement : reading.statements) CheckStatement(pass, statement);
  for (const formats::TextEntry& text : reading.texts) CheckEntry(pass, text);
  for (const formats::Block& block : reading.blocks) {
    const bool isNameless = block.scope == formats::Scope::Item && block.name == kNone;
    if (isNameless) TellMissing(pass, block.opener, "name");
  }
}

}  // namespace qen::analysis
