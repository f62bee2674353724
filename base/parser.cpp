#include "engine/parser.h"

#include "engine/string_converter.h"

namespace qen {
namespace {

using Traits = std::char_traits<Char>;
using Buffer = std::basic_streambuf<Char>;

bool IsEnd(Traits::int_type c) { return Traits::eq_int_type(c, Traits::eof()); }

// The characters up to the first that `isStop` takes, which is consumed, or up to the end of the text.
template <class IsStop>
String ReadUntil(Buffer& buffer, IsStop isStop) {
  String text;
  for (auto c = buffer.sbumpc(); !IsEnd(c); c = buffer.sbumpc()) {
    const Char character = Traits::to_char_type(c);
    if (isStop(character)) break;
    text.push_back(character);
  }
  return text;
}

}  // namespace

Parser::Parser(std::basic_istream<Char>& input, const Char* separators)
    : input_(input), separators_(separators == nullptr ? u"" : separators) {}

Parser::~Parser() = default;

String Parser::nextlow(bool fold) {
  constexpr Char kQuote = u'"';
  Buffer* buffer = input_.rdbuf();
  if (buffer == nullptr) return {};
  const auto isSeparator = [this](Char c) { return separators_.find(c) != String::npos; };

  String token;
  // An empty token would look like the end of the text, so an empty quoted run is passed over.
  while (token.empty()) {
    const auto first = buffer->sbumpc();
    if (IsEnd(first)) return {};
    const Char character = Traits::to_char_type(first);
    if (isSeparator(character)) continue;
    if (character == kQuote) {
      token = ReadUntil(*buffer, [](Char c) { return c == kQuote; });
    } else {
      token = character + ReadUntil(*buffer, isSeparator);
    }
  }
  return fold ? ttolowercase(token) : token;
}

}  // namespace qen
