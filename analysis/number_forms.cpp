#include "analysis/number_forms.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "analysis/words.h"
#include "base/utf.h"
#include "engine/string_converter.h"

namespace qen::analysis {
namespace {

using formats::Keyword;
using formats::Value;
using Limits = std::numeric_limits<std::int32_t>;

constexpr StringView kDigits = u"0123456789";
constexpr StringView kHexDigits = u"0123456789abcdefABCDEF";

// Takes the digits in front away, and gives how many they were.
std::size_t TakeDigits(StringView& text, StringView digits = kDigits) {
  const std::size_t count = std::min(text.find_first_not_of(digits), text.size());
  text.remove_prefix(count);
  return count;
}

// Takes blanks and a sign away.
void TakeSignOf(StringView& text) {
  text.remove_prefix(std::min(text.find_first_not_of(u" \t"), text.size()));
  if (!text.empty() && (text[0] == u'-' || text[0] == u'+')) text.remove_prefix(1);
}

bool IsWhole(StringView text) {
  TakeSignOf(text);
  return TakeDigits(text) > 0 && text.empty();
}

bool IsDecimal(StringView text) {
  TakeSignOf(text);
  std::size_t digits = TakeDigits(text);
  if (text.starts_with(u'.')) {
    text.remove_prefix(1);
    digits += TakeDigits(text);
  }
  if (digits == 0 || text.empty()) return digits > 0;
  if (text[0] != u'e' && text[0] != u'E') return false;
  text.remove_prefix(1);
  return IsWhole(text);
}

bool IsColor(StringView text) {
  if (text.starts_with(u"0x") || text.starts_with(u"0X")) text.remove_prefix(2);
  constexpr std::size_t kMost = 6;
  constexpr std::size_t kWithAlpha = 8;
  const std::size_t digits = TakeDigits(text, kHexDigits);
  return text.empty() && digits > 0 && (digits <= kMost || digits == kWithAlpha);
}

NumberCheck Wrong(StringView value, const std::string& form) {
  return {NumberFault::Wrong, Quoted(value) + " is no " + form};
}

NumberCheck Outside(StringView value, const std::string& why) {
  return {NumberFault::Outside, Quoted(value) + ' ' + why};
}

// Whether more than the nearest that fits would be kept of it.
bool FitsIn32Bits(StringView value, std::int32_t number) {
  if (number != Limits::min() && number != Limits::max()) return true;
  TakeSignOf(value);
  value.remove_prefix(std::min(value.find_first_not_of(u'0'), value.size()));
  return value == (number == Limits::max() ? u"2147483647" : u"2147483648");
}

NumberCheck CheckRange(StringView value, const std::string& name, formats::Range range) {
  const std::int32_t number = StringConverter::ParseInt(value);
  if (!FitsIn32Bits(value, number))
    return Outside(value, "does not fit 32 bits: " + std::to_string(number) + " is taken");
  if (number >= range.least && number <= range.most) return {};
  const std::string most = range.most == Limits::max() ? "" : " to " + std::to_string(range.most);
  return Outside(value, "is out of range: " + name + " goes from " + std::to_string(range.least) + most);
}

NumberCheck CheckWhole(const Keyword& keyword, StringView value) {
  if (!IsWhole(value))
    return Wrong(value, "whole number: " + std::to_string(StringConverter::ParseInt(value)) + " is taken");
  formats::Range range = keyword.range;
  if (keyword.value == Value::TextId) range.least = -1;
  if (keyword.value == Value::Flag) range = {0, 1};
  return CheckRange(value, base::ToUtf8(keyword.word), range);
}

NumberCheck CheckDecimal(StringView value) {
  if (!IsDecimal(value)) return Wrong(value, "decimal, such as 1.5");
  if (std::abs(StringConverter::ParseFloat(value)) < std::numeric_limits<float>::max()) return {};
  return Outside(value, "is more than a decimal can be");
}

}  // namespace

NumberCheck CheckNumber(const Keyword& keyword, StringView value) {
  switch (keyword.value) {
    case Value::Number:
    case Value::Flag:
    case Value::TextId:
      return CheckWhole(keyword, value);
    case Value::Decimal:
      return CheckDecimal(value);
    case Value::Color:
      return IsColor(value) ? NumberCheck{} : Wrong(value, "colour: it is written bbggrr, in hexadecimal digits");
    default:
      return {};
  }
}

NumberCheck CheckTextNumber(StringView id) {
  if (!IsWhole(id)) return Wrong(id, "text id: " + std::to_string(StringConverter::ParseInt(id)) + " is taken");
  return CheckRange(id, "a text id", {.least = 0});
}

}  // namespace qen::analysis
