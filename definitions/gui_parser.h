// The tokens and values of definition files.
#pragma once

#include <cstdint>
#include <istream>

#include "engine/font_desc.h"
#include "engine/parser.h"

namespace qen {

class CGUIParser : public Parser {
 public:
  explicit CGUIParser(std::basic_istream<Char>& input);

  String NextToken();  // empty at the end of the text

  // At the end of the text these give -1, -1.0, all bits set and the empty string, and `ok` becomes false.
  std::int32_t ReadInt();
  float ReadFloat();
  std::uint32_t ReadHex();
  String ReadString();

  // Reads a face name and a block of font keywords behind the keyword "font". Members without a keyword stay. False
  // when the text ends before the face name.
  bool ReadFontBlock(LOGFONTW& font);

  bool ok = true;

 private:
  template <class Value>
  Value Read(Value (*convert)(StringView), Value atEnd);
};

}  // namespace qen
