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

std::vector<String> Tokens(const String& text, bool fold = false) {
  std::basic_istringstream<Char> input(text);
  Parser parser(input, u" \t\n\r;");
  std::vector<String> tokens;
  for (String token = parser.nextlow(fold); !token.empty(); token = parser.nextlow(fold)) tokens.push_back(token);
  EXPECT_EQ(parser.nextlow(fold), u"") << "the end stays the end";
  return tokens;
}

TEST(Parser, Tokens) {
  const struct {
    String text;
    std::vector<String> tokens;
  } kCases[] = {
      {u"", {}},
      {u" \r\n;; ", {}},
      {u"item ~bStart\r\n{ }", {u"item", u"~bStart", u"{", u"}"}},
      {u"a;b", {u"a", u"b"}},
      {u"font \"MS Gothic; bold\" {", {u"font", u"MS Gothic; bold", u"{"}},
      {u"\"a\"b", {u"a", u"b"}},
      {u"say\"no more\"", {u"say\"no", u"more\""}},
      {u"name \"\" next", {u"name", u"next"}},
      {u"open \"to the end", {u"open", u"to the end"}},
      {u"open \"", {u"open"}},
      {u"\xFEFFname x", {u"\xFEFFname", u"x"}},
      {String(3000, u'x') + u" y", {String(3000, u'x'), u"y"}},
  };
  for (const auto& c : kCases) EXPECT_EQ(Tokens(c.text), c.tokens) << ToUtf8(c.text);
  EXPECT_EQ(Tokens(u"One \"TWO Three\"", true), (std::vector<String>{u"one", u"two three"}));
}

TEST(StringConverter, ParseInt) {
  const struct {
    const Char* text;
    std::int32_t value;
  } kCases[] = {
      {u"", 0},
      {u"42", 42},
      {u"-7", -7},
      {u"+7", 7},
      {u" \t12x9", 12},
      {u"x", 0},
      {u"-", 0},
      {u"--1", 0},
      {u"1.9", 1},
      {u"007", 7},
      {u"2147483647", 2147483647},
      {u"2147483648", 2147483647},
      {u"-2147483648", std::numeric_limits<std::int32_t>::min()},
      {u"-99999999999999999999", std::numeric_limits<std::int32_t>::min()},
      {u"\xFF11", 0},
  };
  for (const auto& c : kCases) EXPECT_EQ(StringConverter::ParseInt(c.text), c.value) << ToUtf8(c.text);
}

TEST(StringConverter, ParseFloat) {
  constexpr float kMax = std::numeric_limits<float>::max();
  const struct {
    const Char* text;
    float value;
  } kCases[] = {
      {u"", 0},
      {u"1.5", 1.5F},
      {u"-0.25", -0.25F},
      {u"+3", 3},
      {u".5", 0.5F},
      {u"5.", 5},
      {u".", 0},
      {u"1e3", 1000},
      {u"1e", 1},
      {u"1e+", 1},
      {u"2E-2x", 0.02F},
      {u"1,5", 1},
      {u"1.2.3", 1.2F},
      {u"inf", 0},
      {u"nan", 0},
      {u"0x10", 0},
      {u"1e99", kMax},
      {u"-1e99", -kMax},
      {u"1e-99", 0},
      {u"0e99", 0},
      {u"0.000001e99", kMax},
      {u"1000000e-99", 0},
      {u"1e99999999999", kMax},
      {u"1e-99999999999", 0},
      {u"99999999999999999999999999999999999999999", kMax},
  };
  for (const auto& c : kCases) EXPECT_EQ(StringConverter::ParseFloat(c.text), c.value) << ToUtf8(c.text);
  EXPECT_EQ(StringConverter::ParseFloat(u"0." + String(500, u'0') + u"1e501"), 1.0F);
}

TEST(StringConverter, ParseHexAndToString) {
  const struct {
    const Char* text;
    std::uint32_t value;
  } kCases[] = {
      {u"", 0},
      {u"ff", 255},
      {u"FFa0", 0xFFA0},
      {u"0x1F", 31},
      {u"0X1f", 31},
      {u"x1", 0},
      {u"-1", 0},
      {u"12g", 0x12},
      {u"0x", 0},
      {u"ffffffff", 0xFFFFFFFF},
      {u"1ffffffff", 0xFFFFFFFF},
      {u"fffffffffffffffffffff", 0xFFFFFFFF},
  };
  for (const auto& c : kCases) EXPECT_EQ(StringConverter::ParseHex(c.text), c.value) << ToUtf8(c.text);
  EXPECT_EQ(StringConverter::ToString(-5), u"-5");
  EXPECT_EQ(StringConverter::ToString(std::numeric_limits<std::int32_t>::min()), u"-2147483648");
}

TEST(Strings, SplitString) {
  using Pieces = std::vector<String>;
  EXPECT_EQ(SplitString(u"setpage:main\n", u":\n", 0), (Pieces{u"setpage", u"main", u""}));
  EXPECT_EQ(SplitString(u":a::b", u":", 0), (Pieces{u"", u"a", u"", u"b"}));
  EXPECT_EQ(SplitString(u"a/b\\c", u"\\/", 1), (Pieces{u"a", u"b\\c"}));
  EXPECT_EQ(SplitString(u"abc", u":", 0), (Pieces{u"abc"}));
  EXPECT_EQ(SplitString(u"abc", u"", 0), (Pieces{u"abc"}));
  EXPECT_EQ(SplitString(u":", u":", 0), (Pieces{u"", u""}));
  EXPECT_EQ(SplitString(u"", u":", 0), Pieces{});
}

TEST(Strings, LowerCase) {
  EXPECT_EQ(ttolowercase(u"Hello WORLD 09_[]{}@`"), u"hello world 09_[]{}@`");
  EXPECT_EQ(ttolowercase(u"ÄÖÜ×ÞßŸ ĀāĂ İI Ž"), u"äöü×þßÿ āāă ii ž");
  EXPECT_EQ(ttolowercase(u"ΑΒΣΆΏ ЀЁЖЯ ԱՖ ＡＺ"), u"αβσάώ ѐёжя աֆ ａｚ");
  EXPECT_EQ(ttolowercase(u"äя漢字ー\xD800"), u"äя漢字ー\xD800");
}

TEST(Utf, ConvertsBothWays) {
  const String text = u"a\u00E9\u20AC\uFEFF\U0001F600" + String{u'\0', u'z'};
  EXPECT_EQ(ToUtf8(u"a\u00E9\u20AC\U0001F600"), "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80");
  EXPECT_EQ(ToUtf16(ToUtf8(text)), text);
  EXPECT_EQ(ToUtf8(String{u'a', 0xD800, u'b', 0xDC00}),
            "a\xEF\xBF\xBD"
            "b\xEF\xBF\xBD");
}

TEST(Utf, TellsWhatIsNotWellFormed) {
  const struct {
    std::string bytes;
    String decoded;
  } kCases[] = {
      {"\x80", u"\uFFFD"},
      {"\xC0\xAF", u"\uFFFD\uFFFD"},  // longer than needed
      {"\xE0\x80\x80", u"\uFFFD\uFFFD\uFFFD"},
      {"\xED\xA0\x80", u"\uFFFD\uFFFD\uFFFD"},  // a surrogate
      {"\xF4\x90\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD"},
      {"\xFF", u"\uFFFD"},
      {"a\xE2\x82", u"a\uFFFD"},  // cut off: one for all that a character begins with
      {"\xF0\x9F\x98z", u"\uFFFDz"},
      {"\xC3(", u"\uFFFD("},
  };
  for (const auto& c : kCases) {
    EXPECT_TRUE(base::FindWrongByte(c.bytes).has_value());
    EXPECT_EQ(ToUtf16(c.bytes), c.decoded);
  }
}

}  // namespace
}  // namespace qen
