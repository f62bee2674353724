// Definition files as their text with places: its tokens are those of the engine's parser, every place leads back, and
// what no edit touches stays as it is.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <sstream>
#include <vector>

#include "engine/parser.h"
#include "formats/definition_syntax.h"
#include "formats/reading.h"
#include "fuzz/target.h"

namespace qen::fuzz {
namespace {

void Require(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "wrong: %s\n", what);
  std::abort();
}

// A stream of 16-bit characters has U+FFFF for its end, and gives U+FFFD for one inside.
String AsStreamed(StringView token) {
  String streamed(token);
  std::ranges::replace(streamed, Char{0xFFFF}, Char{0xFFFD});
  return streamed;
}

void CompareTokens(StringView text, const std::vector<formats::Token>& tokens) {
  std::basic_istringstream<Char> stream(String(text.substr(0, text.find(u'\0'))));
  Parser parser(stream, formats::kSeparators);
  for (const formats::Token& token : tokens) Require(parser.nextlow(false) == AsStreamed(token.value), "a token");
  Require(parser.nextlow(false).empty(), "the number of tokens");
}

void ComparePlaces(const formats::SourceText& text, const std::vector<formats::Token>& tokens) {
  for (const formats::Token& token : tokens) {
    if (token.range.begin < text.BeginOf(1)) continue;  // a mark has no place of its own
    const formats::Place place = text.PlaceOf(token.range.begin);
    Require(text.BeginOf(place.line) + place.column - 1 == token.range.begin, "a place");
  }
}

// What is before and behind an edit stays byte for byte.
void CompareEdits(const formats::SourceText& text, const std::vector<formats::Token>& tokens) {
  const std::vector<std::uint8_t> bytes(text.Bytes().begin(), text.Bytes().end());
  Require(text.Edited({}) == bytes, "bytes without an edit");
  if (tokens.empty()) return;
  const formats::Range16 range = tokens.back().range;
  const std::vector<std::uint8_t> without = text.Edited({{range, u""}});
  const auto before = std::ranges::mismatch(bytes, without).in1 - bytes.begin();
  const auto kept = static_cast<std::ptrdiff_t>(without.size()) - before;
  Require(before >= static_cast<std::ptrdiff_t>(range.begin) && kept >= 0 &&
              std::equal(without.end() - kept, without.end(), bytes.end() - kept),
          "what an edit leaves");
}

}  // namespace

void Try(Input input) {
  const formats::SourceText text({input.begin(), input.end()});
  const std::vector<formats::Token> tokens = formats::Tokenize(text.Text());
  CompareTokens(text.Text(), tokens);
  ComparePlaces(text, tokens);
  CompareEdits(text, tokens);
  using enum formats::FileKind;
  for (const formats::FileKind kind : {Description, Language, Page, Bag, Style}) {
    formats::ReadDefinition(kind, text.Text());
  }
}

}  // namespace qen::fuzz
