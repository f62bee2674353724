#include "formats/tokens.h"

#include <algorithm>

#include "formats/definition_syntax.h"

namespace qen::formats {
namespace {

constexpr StringView kBraces = u"{}";

bool IsSeparator(Char c) { return StringView(kSeparators).find(c) != StringView::npos; }

// The token whose first character is at `begin`; its value is empty for empty quotes.
Token TokenAt(StringView text, std::size_t begin) {
  if (text[begin] == kQuote) {
    const std::size_t end = text.find(kQuote, begin + 1);
    const bool closed = end != StringView::npos;
    const std::size_t last = closed ? end : text.size();
    return {{begin, closed ? end + 1 : end}, text.substr(begin + 1, last - begin - 1), true, closed};
  }
  const std::size_t end = std::min(text.find_first_of(kSeparators, begin), text.size());
  return {{begin, end}, text.substr(begin, end - begin)};
}

// Whether a quote that goes over a line's end was most likely never closed: what ends it begins another, or nothing
// does.
bool IsBroken(StringView text, const Token& token) {
  if (!token.isQuoted || token.value.find(u'\n') == StringView::npos) return token.isQuoted && !token.isClosed;
  return !token.isClosed || (token.range.end < text.size() && !IsSeparator(text[token.range.end]));
}

// Ends where its line does, or before a brace.
Token Mended(StringView text, std::size_t first) {
  const std::size_t most = std::min(text.find_first_of(u"{}\r\n", first), text.size());
  const std::size_t end = text.find_last_not_of(kSeparators, most - 1) + 1;
  Token token{{first, end}, text.substr(first + 1, end - first - 1), true, false};
  // A quote alone on its line stands for itself, so that the token is there to be told of.
  if (token.value.empty()) token.value = text.substr(first, 1);
  return token;
}

// The parts of a word: braces at its ends are words of their own, but for one with something between braces, which is
// the game's own.
void AddParts(const Token& word, std::vector<Token>& tokens) {
  const StringView value = word.value;
  const auto add = [&](std::size_t begin, std::size_t end) {
    if (begin == end) return;
    tokens.push_back({{word.range.begin + begin, word.range.begin + end}, value.substr(begin, end - begin)});
  };
  const std::size_t first = std::min(value.find_first_not_of(kBraces), value.size());
  const std::size_t last = std::max(first, value.find_last_not_of(kBraces) + 1);
  const std::size_t open = value.find(kOpen);
  const bool holds = open < last && value.find(kClose, last) != StringView::npos;
  if (holds || value.substr(first, last - first).find_first_of(kBraces) != StringView::npos) {
    add(0, value.size());
    return;
  }
  for (std::size_t i = 0; i < first; ++i) add(i, i + 1);
  add(first, last);
  for (std::size_t i = last; i < value.size(); ++i) add(i, i + 1);
}

// `add` appends the tokens that are meant by the one that was found, and gives where they end.
template <class Add>
std::vector<Token> Cut(StringView text, std::size_t begin, Add add) {
  text = text.substr(0, text.find(u'\0'));
  std::vector<Token> tokens;
  while (begin < text.size()) {
    if (IsSeparator(text[begin])) {
      ++begin;
      continue;
    }
    Token token = TokenAt(text, begin);
    token.range.end = std::min(token.range.end, text.size());
    begin = add(text, token, tokens);
  }
  return tokens;
}

}  // namespace

std::vector<Token> Tokenize(StringView text, std::size_t begin) {
  return Cut(text, begin, [](StringView, const Token& token, std::vector<Token>& tokens) {
    if (!token.value.empty()) tokens.push_back(token);
    return token.range.end;
  });
}

std::vector<Token> TokenizeMended(StringView text, std::size_t begin, std::vector<std::size_t>& broken) {
  return Cut(text, begin, [&broken](StringView whole, const Token& token, std::vector<Token>& tokens) {
    if (IsBroken(whole, token)) {
      broken.push_back(tokens.size());
      tokens.push_back(Mended(whole, token.range.begin));
      return tokens.back().range.end;
    }
    if (!token.isQuoted) {
      AddParts(token, tokens);
    } else if (!token.value.empty()) {
      tokens.push_back(token);
    }
    return token.range.end;
  });
}

}  // namespace qen::formats
