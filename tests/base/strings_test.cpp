#include <gtest/gtest.h>

#include <limits>
#include <sstream>

#include "base/utf.h"
#include "engine/parser.h"
#include "engine/string_converter.h"

namespace qen {
namespace {

using base::ToUtf16;
using base::ToUtf8;

// Rows like "12x9=12": a text and the number it gives.
template <class Result>
void ExpectNumbers(Result (*parse)(StringView), const std::string& rows) {
  std::istringstream input(rows);
  for (std::string text, wanted; std::getline(input, text, '=') && input >> wanted; input >> std::ws) {
    std::ostringstream number;
    number << parse(ToUtf16(text));
    EXPECT_EQ(number.str(), wanted) << text;
  }
  EXPECT_EQ(parse(u" \t9x"), Result{9});
  for (const Char* none : {u"", u"x1", u"-", u"--1", u".", u":1", u"/1", u"@1", u"`1", u"\xFF11", u"inf", u"nan"}) {
    EXPECT_EQ(parse(none), Result{}) << ToUtf8(none);
  }
}

// The tokens with a bar behind each; what follows on the end would be behind the last one.
String Tokens(const String& text, bool fold = false) {
  std::basic_istringstream<Char> input(text);
  Parser parser(input, u" \t\n\r;");
  String tokens;
  for (String token = parser.nextlow(fold); !token.empty(); token = parser.nextlow(fold)) tokens += token + u'|';
  return tokens + parser.nextlow(fold);
}

TEST(Parser, Tokens) {
  EXPECT_EQ(Tokens(u" item ~bStart\r\n{ };;a;b \"MS Gothic; bold\" { \"a\"b say\"no more\" name \"\" next \""),
            u"item|~bStart|{|}|a|b|MS Gothic; bold|{|a|b|say\"no|more\"|name|next|");
  EXPECT_EQ(Tokens(u"\xFEFFName \"to the end"), u"\xFEFFName|to the end|");
  EXPECT_EQ(Tokens(u" \r\n;; "), u"");
  EXPECT_EQ(Tokens(u"One \"TWO Three\"", true), u"one|two three|");
}

TEST(StringConverter, NumbersEndWhereTheTextIsNoneAndAtTheirLimits) {
  ExpectNumbers(StringConverter::ParseInt,
                "-7=-7 +7=7 1.9=1 007=7 1:=1 2147483647=2147483647 2147483648=2147483647 99999999999=2147483647 "
                "-2147483648=-2147483648 -99999999999=-2147483648");
  EXPECT_EQ(StringConverter::ToString(std::numeric_limits<std::int32_t>::min()), u"-2147483648");

  ExpectNumbers(StringConverter::ParseFloat,
                "-0.25=-0.25 +3=3 .5=0.5 5.=5 1e3=1000 1e=1 1e+=1 1e+2=100 1,5=1 1.2.3=1.2 2E-2x=0.02 0x10=0 "
                "-1e99=-3.40282e+38 0.00001e99=3.40282e+38 1e999999999=3.40282e+38 1e-99=0 0e99=0 1e-46=0 "
                "1e-999999999=0 1000000e-99=0 99999999999999999999999999999999999999999=3.40282e+38");
  EXPECT_EQ(StringConverter::ParseFloat(u"0." + String(500, u'0') + u"1e501"), 1.0F);

  ExpectNumbers(StringConverter::ParseHex,
                "FFa0=65440 0x1F=31 0X1f=31 12g=18 12G=18 1@=1 1`=1 0x=0 ffffffff=4294967295 1ffffffff=4294967295");
}

TEST(Strings, SplitString) {
  using Pieces = std::vector<String>;
  EXPECT_EQ(SplitString(u"setpage:main\n", u":\n", 0), (Pieces{u"setpage", u"main", u""}));
  EXPECT_EQ(SplitString(u":a::b", u":", 0), (Pieces{u"", u"a", u"", u"b"}));
  EXPECT_EQ(SplitString(u"a/b\\c", u"\\/", 1), (Pieces{u"a", u"b\\c"}));
  EXPECT_EQ(SplitString(u"abc", u"", 0), (Pieces{u"abc"}));
  EXPECT_EQ(SplitString(u"", u":", 0), Pieces{});
}

TEST(Strings, LowerCaseOfEveryScript) {
  EXPECT_EQ(ttolowercase(u"AZ[]@`{} \u00C0\u00D7\u00DE\u1E9E\u0100\u0101\u0178"),
            u"az[]@`{} \u00E0\u00D7\u00FE\u00DF\u0101\u0101\u00FF");
  EXPECT_EQ(ttolowercase(u"\u0386\u03A9\u0400\u042F\u0531\uFF21\u6F22\xD800"),
            u"\u03AC\u03C9\u0450\u044F\u0561\uFF41\u6F22\xD800");
}

TEST(Utf, ConvertsBothWays) {
  EXPECT_EQ(ToUtf8(u"a\u00E9\u20AC\U0001F605"), "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x85");
  const String lengths = u"\u007F\u0080\u07FF\u0800\uD7FF\uE000\uFFFF\U00010000\U0003FFFF\U00040000\U0010FFFF";
  EXPECT_EQ(ToUtf16(ToUtf8(lengths)), lengths) << "where one more byte begins";
  EXPECT_FALSE(base::FindWrongByte(ToUtf8(lengths)).has_value());
}

TEST(Utf, TellsWhatIsNotWellFormed) {
  EXPECT_EQ(ToUtf16("\x80 \xFF"), u"� �");
  EXPECT_EQ(ToUtf16("\xC0\xAF \xE0\x9F\x80 \xF0\x8F\x80\x80"), u"�� ��� ����") << "longer than needed";
  EXPECT_EQ(ToUtf16("\xED\xA0\x80"), u"���") << "a surrogate";
  EXPECT_EQ(ToUtf16("\xF4\x90\x80\x80 \xF5"), u"���� �") << "beyond the last character";
  EXPECT_EQ(ToUtf16("\xF0\x9F\x98z \xC3( \xE2\x82"), u"�z �( �") << "one for all that a character begins with";
  EXPECT_EQ(ToUtf8(String{u'a', 0xD800, u'b', 0xDC00}), "a\uFFFDb\uFFFD");
}

}  // namespace
}  // namespace qen
