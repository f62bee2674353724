#include "base/format.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <limits>

#include "base/utf.h"

namespace qen::base {
namespace {

String Format(const Char* format, ...) {
  String out;
  std::va_list arguments;
  va_start(arguments, format);
  AppendFormat(out, format, arguments);
  va_end(arguments);
  return out;
}

// What the C library makes of the same format; the test's formats are its own.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
template <class Value>
std::string Reference(const char* format, Value value) {
  std::array<char, 1024> buffer{};
  const int length = std::snprintf(buffer.data(), buffer.size(), format, value);
  return {buffer.data(), static_cast<std::size_t>(length)};
}
#pragma GCC diagnostic pop

template <class Value>
void ExpectAsReference(const char* format, Value value) {
  EXPECT_EQ(ToUtf8(Format(ToUtf16(format).c_str(), value)), Reference(format, value)) << format << ' ' << value;
}

TEST(Format, IntegersAsTheStandardSays) {
  for (const char* format :
       {"%d", "%i", "%5d|", "%-5d|", "%05d", "%+d", "% d", "%+05d", "%.3d", "%8.3d", "%-08d|", "%.0d", "%08.3d"}) {
    for (const int value : {0, 1, -1, 42, -12345678, std::numeric_limits<int>::min()}) ExpectAsReference(format, value);
  }
  for (const char* format : {"%u", "%x", "%X", "%#x", "%#X", "%08x", "%#010x", "%-6x|", "%.5x", "%#.3x"}) {
    for (const unsigned value : {0U, 1U, 0xABCDEFU, 0xFFFFFFFFU}) ExpectAsReference(format, value);
  }
  ExpectAsReference("%lld", std::numeric_limits<long long>::min());
  ExpectAsReference("%zu", std::numeric_limits<std::size_t>::max());
}

TEST(Format, AddressesInHexadecimalOnEverySystem) {
  const int anything = 0;
  EXPECT_EQ(ToUtf8(Format(u"%p", &anything)), Reference("0x%zx", reinterpret_cast<std::size_t>(&anything)));
}

TEST(Format, RealsAsTheStandardSays) {
  for (const char* format : {"%f", "%.0f", "%1.1f", "%1.4f", "%10.2f|", "%-10.2f|", "%010.2f", "%+.1f", "% .1f", "%g",
                             "%.3g", "%10g|", "%.0g"}) {
    for (const double value : {0.0, -0.0, 1.0, 0.05, 2.5, -1234.5678, 1e-5, 1e20, 123456789.0}) {
      ExpectAsReference(format, value);
    }
    ExpectAsReference(format, std::numeric_limits<double>::infinity());
    ExpectAsReference(format, -std::numeric_limits<double>::infinity());
  }
  ExpectAsReference("%.300f", std::numeric_limits<double>::max());
}

TEST(Format, Texts) {
  EXPECT_EQ(Format(u"<%s>", u"wide \u6F22"), u"<wide \u6F22>");
  EXPECT_EQ(Format(u"<%5s|%-5s|%.2s>", u"ab", u"cd", u"efgh"), u"<   ab|cd   |ef>");
  EXPECT_EQ(Format(u"%*d|%-*d|%.*f", 4, 7, 4, 7, 1, 2.25), u"   7|7   |2.2");
  EXPECT_EQ(Format(u"%s", static_cast<const Char*>(nullptr)), u"(null)");
  EXPECT_EQ(Format(u"%c%c|%3c", u'x', 0x6F22, u'y'), u"x\u6F22|  y");
  const Char unended[] = {u'a', u'b'};
  EXPECT_EQ(Format(u"%.2s", unended), u"ab") << "the precision bounds what is read";
}

TEST(Format, WhatIsNoFormatIsCopied) {
  EXPECT_EQ(Format(u"100%% %"), u"100% %");
  EXPECT_EQ(Format(u"%y %5"), u"%y %5");
  EXPECT_EQ(Format(nullptr), u"");
  EXPECT_EQ(Format(u"%999999999d", 1).size(), 4096U) << "widths are bounded";
  EXPECT_EQ(Format(u"%.99999f", 0.5).size(), 502U);
}

}  // namespace
}  // namespace qen::base
