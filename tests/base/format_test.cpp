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
void ExpectAsReference(std::initializer_list<const char*> formats, std::initializer_list<Value> values) {
  for (const char* format : formats) {
    for (const Value value : values) {
      EXPECT_EQ(ToUtf8(Format(ToUtf16(format).c_str(), value)), Reference(format, value)) << format << ' ' << value;
    }
  }
}

TEST(Format, NumbersAsTheStandardSays) {
  ExpectAsReference(
      {"%d", "%i", "%5d|", "%-5d|", "%05d", "%+d", "% d", "%+05d", "%.3d", "%8.3d", "%-08d|", "%.0d", "%08.3d"},
      {0, 1, -1, 42, -12345678, std::numeric_limits<int>::min()});
  ExpectAsReference({"%u", "%x", "%X", "%#x", "%#X", "%08x", "%#010x", "%-6x|", "%.5x", "%#.3x"},
                    {0U, 1U, 0xABCDEFU, 0xFFFFFFFFU});
  ExpectAsReference({"%lld", "%llx", "%zu"}, {std::numeric_limits<long long>::min(), 1LL << 40});
  ExpectAsReference({"%f", "%.0f", "%1.1f", "%1.4f", "%10.2f|", "%-10.2f|", "%010.2f", "%+.1f", "% .1f", "%g", "%.3g",
                     "%10g|", "%.0g"},
                    {0.0, -0.0, 1.0, 0.05, 2.5, -1234.5678, 1e-5, 1e20, 123456789.0,
                     std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity()});
  ExpectAsReference({"%.300f"}, {std::numeric_limits<double>::max()});
}

TEST(Format, TextsAndWhatIsNoFormat) {
  const Char unended[] = {u'a', u'b'};  // the precision bounds what is read
  EXPECT_EQ(ToUtf8(Format(u"<%s> %5s|%-5s|%.2s|%.2s %s %c%c|%3c", u"wide \u6F22", u"ab", u"cd", u"efgh", unended,
                          static_cast<const Char*>(nullptr), u'x', 0x6F22, u'y')),
            ToUtf8(u"<wide \u6F22>    ab|cd   |ef|ab (null) x\u6F22|  y"));
  EXPECT_EQ(ToUtf8(Format(u"%*d|%*d|%.*f 100%% %y %5", 4, 7, -4, 7, 1, 2.25)), "   7|7   |2.2 100% %y %5");
  EXPECT_EQ(ToUtf8(Format(u"%p%", unended)), Reference("0x%zx%%", reinterpret_cast<std::size_t>(&unended)));
  EXPECT_EQ(Format(nullptr), u"");
  EXPECT_EQ(Format(u"%999999999d", 1).size(), 4096U) << "widths are bounded";
  EXPECT_EQ(Format(u"%.99999f", 0.5).size(), 502U);
}

}  // namespace
}  // namespace qen::base
