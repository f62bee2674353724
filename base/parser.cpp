#include "engine/parser.h"

#include "engine/string_converter.h"

namespace qen {
namespace {

using Traits = std::char_traits<Char>;

bool IsEnd(Traits::int_type c) { return Traits::eq_int_type(c, Traits::eof()); }

}  // namespace

Parser::Parser(std::basic_istream<Char>& input, const Char* separators)
    : input_(input), separators_(separators == nullptr ? u"" : separators) {
  for (const Char c : separators_) {
    if (c < isSeparator_.size()) isSeparator_[c] = true;
  }
}

Parser::~Parser() = default;

template <class IsStop>
void Parser::ReadUntil(IsStop isStop) {
  std::basic_streambuf<Char>& buffer = *input_.rdbuf();
  for (auto c = buffer.sbumpc(); !IsEnd(c); c = buffer.sbumpc()) {
    const Char character = Traits::to_char_type(c);
    if (isStop(character)) break;
    token_.push_back(character);
  }
}

String Parser::nextlow(bool fold) {
  constexpr Char kQuote = u'"';
  if (input_.rdbuf() == nullptr) return {};
  token_.clear();
  // An empty token would look like the end of the text, so an empty quoted run is passed over.
  while (token_.empty()) {
    const auto first = input_.rdbuf()->sbumpc();
    if (IsEnd(first)) return {};
    const Char character = Traits::to_char_type(first);
    if (IsSeparator(character)) continue;
    if (character == kQuote) {
      ReadUntil([](Char c) { return c == kQuote; });
    } else {
      token_.push_back(character);
      ReadUntil([this](Char c) { return IsSeparator(c); });
    }
  }
  return fold ? ttolowercase(token_) : token_;
}

}  // namespace qen
