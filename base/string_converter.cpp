#include "engine/string_converter.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <string>

namespace qen {
namespace {

constexpr StringView kBlanks = u" \t\n\v\f\r";

bool IsDigit(Char c) { return c >= u'0' && c <= u'9'; }

void SkipBlanks(StringView& text) { text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size())); }

// Takes a leading sign off; true for a minus.
bool TakeSign(StringView& text) {
  if (text.empty() || (text[0] != u'-' && text[0] != u'+')) return false;
  const bool negative = text[0] == u'-';
  text.remove_prefix(1);
  return negative;
}

std::size_t CountDigits(StringView text) {
  std::size_t count = 0;
  while (count < text.size() && IsDigit(text[count])) ++count;
  return count;
}

// The parts of an unsigned decimal number, as far as the text is one.
struct Decimal {
  StringView whole;
  StringView fraction;
  StringView exponent;  // with its sign

  [[nodiscard]] bool IsNumber() const { return !whole.empty() || !fraction.empty(); }
};

Decimal ScanDecimal(StringView text) {
  Decimal decimal;
  decimal.whole = text.substr(0, CountDigits(text));
  text.remove_prefix(decimal.whole.size());
  if (!text.empty() && text[0] == u'.') {
    decimal.fraction = text.substr(1, CountDigits(text.substr(1)));
    text.remove_prefix(1 + decimal.fraction.size());
  }
  if (text.empty() || (text[0] != u'e' && text[0] != u'E')) return decimal;
  text.remove_prefix(1);
  const std::size_t sign = !text.empty() && (text[0] == u'-' || text[0] == u'+') ? 1 : 0;
  const std::size_t digits = CountDigits(text.substr(sign));
  if (digits > 0) decimal.exponent = text.substr(0, sign + digits);
  return decimal;
}

// Only for numbers outside of a float's range: whether the first digit that counts stands before the decimal point.
bool IsLarge(const Decimal& decimal) {
  constexpr std::int64_t kFar = std::int64_t{1} << 40;
  const std::int64_t exponent = StringConverter::ParseInt(decimal.exponent);
  const std::size_t inWhole = decimal.whole.find_first_not_of(u'0');
  if (inWhole != StringView::npos) {
    return static_cast<std::int64_t>(std::min<std::size_t>(decimal.whole.size() - inWhole, kFar)) + exponent > 0;
  }
  const std::size_t inFraction = decimal.fraction.find_first_not_of(u'0');
  return exponent > static_cast<std::int64_t>(std::min<std::size_t>(inFraction, kFar));
}

void AppendNarrow(std::string& out, StringView digits) {
  for (const Char c : digits) out.push_back(static_cast<char>(c));
}

std::string Narrow(const Decimal& decimal) {
  std::string text;
  AppendNarrow(text, decimal.whole);
  text += '.';
  AppendNarrow(text, decimal.fraction);
  if (!decimal.exponent.empty()) {
    text += 'e';
    AppendNarrow(text, decimal.exponent);
  }
  return text;
}

std::int32_t HexDigit(Char c) {
  if (IsDigit(c)) return c - u'0';
  if (c >= u'a' && c <= u'f') return c - u'a' + 10;
  if (c >= u'A' && c <= u'F') return c - u'A' + 10;
  return -1;
}

}  // namespace

std::int32_t StringConverter::ParseInt(StringView text) {
  constexpr std::int64_t kMax = std::numeric_limits<std::int32_t>::max();
  SkipBlanks(text);
  const bool negative = TakeSign(text);
  const std::int64_t limit = negative ? kMax + 1 : kMax;
  std::int64_t value = 0;
  for (const Char c : text.substr(0, CountDigits(text))) value = std::min(limit, value * 10 + (c - u'0'));
  return static_cast<std::int32_t>(negative ? -value : value);
}

float StringConverter::ParseFloat(StringView text) {
  SkipBlanks(text);
  const bool negative = TakeSign(text);
  const Decimal decimal = ScanDecimal(text);
  if (!decimal.IsNumber()) return 0.0F;
  const std::string narrow = Narrow(decimal);
  float value = 0.0F;
  const auto result = std::from_chars(narrow.data(), narrow.data() + narrow.size(), value);
  if (result.ec == std::errc::result_out_of_range) {
    value = IsLarge(decimal) ? std::numeric_limits<float>::max() : 0.0F;
  }
  return negative ? -value : value;
}

std::uint32_t StringConverter::ParseHex(StringView text) {
  constexpr std::uint64_t kMax = std::numeric_limits<std::uint32_t>::max();
  SkipBlanks(text);
  if (text.starts_with(u"0x") || text.starts_with(u"0X")) text.remove_prefix(2);
  std::uint64_t value = 0;
  for (const Char c : text) {
    const std::int32_t digit = HexDigit(c);
    if (digit < 0) break;
    value = std::min(kMax, value * 16 + static_cast<std::uint64_t>(digit));
  }
  return static_cast<std::uint32_t>(value);
}

String StringConverter::ToString(std::int32_t value) {
  std::array<char, 16> digits{};
  const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), value);
  return {digits.data(), result.ptr};
}

}  // namespace qen
