// Quotes, and braces without blanks.
#include "analysis/rules/reading_pass.h"
#include "analysis/words.h"

namespace qen::analysis {
namespace {

using formats::Token;

// Tokens that nothing is between are parts of one word: readers would not tell the brace.
bool IsGluedToNext(const std::vector<Token>& tokens, std::size_t i) {
  return i + 1 < tokens.size() && !tokens[i].isQuoted && !tokens[i + 1].isQuoted &&
         tokens[i].range.end == tokens[i + 1].range.begin;
}

void CheckGlue(ReadingPass& pass) {
  const std::vector<Token>& tokens = pass.source.Reading().tokens;
  const StringView text = pass.source.Text().Text();
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    if (!IsGluedToNext(tokens, i)) continue;
    formats::Range16 word = tokens[i].range;
    std::vector<formats::Edit> fix;
    for (; IsGluedToNext(tokens, i); ++i) {
      word.end = tokens[i + 1].range.end;
      fix.push_back({{tokens[i].range.end, tokens[i].range.end}, u" "});
    }
    const StringView shown = text.substr(word.begin, word.end - word.begin);
    pass.findings.Add(Rule::GluedBrace, pass.source, word, Quoted(shown) + " is one word: the brace needs a blank",
                      fix);
  }
}

// A text of a language ends with its line, so that it is certain where its quote is missing.
void CheckBroken(ReadingPass& pass) {
  const bool isLanguage = pass.source.Kind() == formats::FileKind::Language;
  for (const std::size_t token : pass.source.Reading().broken) {
    const std::size_t end = pass.source.RangeAt(token).end;
    std::vector<formats::Edit> fix;
    if (isLanguage) fix.push_back({{end, end}, u"\""});
    pass.Tell(Rule::UnclosedQuote, token, "this quote is not closed", fix);
  }
}

void CheckLines(ReadingPass& pass, std::size_t token) {
  if (token == formats::kNone || pass.told[token] || !pass.source.TokenAt(token).isQuoted) return;
  if (pass.source.ValueAt(token).find_first_of(u"\r\n") == StringView::npos) return;
  pass.Tell(Rule::QuoteOverLines, token, Quoted(pass.source.ValueAt(token)) + " goes over the end of its line");
}

}  // namespace

void CheckSigns(ReadingPass& pass) {
  CheckGlue(pass);
  CheckBroken(pass);
  for (const formats::Statement& statement : pass.source.Reading().statements) CheckLines(pass, statement.value);
  for (const formats::Block& block : pass.source.Reading().blocks) CheckLines(pass, block.name);
}

}  // namespace qen::analysis
