#include "base/format.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace qen::base {
namespace {

constexpr int kMaxWidth = 4096;     // wider fields are no log lines
constexpr int kMaxPrecision = 500;  // digits of a number; texts may be longer

// What stands between the per cent sign and the conversion.
struct Field {
  bool left = false, plus = false, blank = false, zero = false, alternative = false;
  int width = 0;
  int precision = -1;
  std::size_t integerSize = sizeof(int);
};

// The arguments, in a structure so that they can be handed on by reference.
struct Arguments {
  std::va_list list;
};

bool TakeFlag(Field& field, Char c) {
  switch (c) {
    case u'-':
      return field.left = true;
    case u'+':
      return field.plus = true;
    case u' ':
      return field.blank = true;
    case u'0':
      return field.zero = true;
    case u'#':
      return field.alternative = true;
    default:
      return false;
  }
}

int ReadNumber(const Char*& at, Arguments& arguments) {
  if (*at == u'*') {
    ++at;
    return va_arg(arguments.list, int);
  }
  int number = 0;
  for (; *at >= u'0' && *at <= u'9'; ++at) number = std::min(number * 10 + (*at - u'0'), 1 << 20);
  return number;
}

std::size_t ReadIntegerSize(const Char*& at) {
  std::size_t size = sizeof(int);
  for (;; ++at) {
    if (*at == u'l' && at[1] == u'l') {
      size = sizeof(long long);
      ++at;
    } else if (*at == u'l') {
      size = sizeof(long);
    } else if (*at == u'z' || *at == u't' || *at == u'j') {
      size = sizeof(std::size_t);
    } else if (*at != u'h') {
      return size;
    }
  }
}

Field ReadField(const Char*& at, Arguments& arguments) {
  Field field;
  while (TakeFlag(field, *at)) ++at;
  const int width = ReadNumber(at, arguments);
  field.left = field.left || width < 0;
  field.width = static_cast<int>(std::min<std::int64_t>(std::abs(std::int64_t{width}), kMaxWidth));
  if (*at == u'.') field.precision = ReadNumber(++at, arguments);
  field.integerSize = ReadIntegerSize(at);
  return field;
}

std::int64_t NextSigned(const Field& field, Arguments& arguments) {
  return field.integerSize == sizeof(int) ? va_arg(arguments.list, int) : va_arg(arguments.list, std::int64_t);
}

std::uint64_t NextUnsigned(const Field& field, Arguments& arguments) {
  return field.integerSize == sizeof(int) ? va_arg(arguments.list, unsigned) : va_arg(arguments.list, std::uint64_t);
}

void Pad(String& out, std::size_t count, Char fill) { out.append(count, fill); }

std::size_t Missing(const Field& field, std::size_t length) {
  const auto width = static_cast<std::size_t>(field.width);
  return width > length ? width - length : 0;
}

void AppendText(String& out, const Field& field, StringView text) {
  if (!field.left) Pad(out, Missing(field, text.size()), u' ');
  out += text;
  if (field.left) Pad(out, Missing(field, text.size()), u' ');
}

// `prefix` is a sign or a base; zeros to fill go behind it.
void AppendNumber(String& out, const Field& field, std::string_view prefix, std::size_t zeros, std::string_view digits,
                  bool zeroFill) {
  const std::size_t missing = Missing(field, prefix.size() + zeros + digits.size());
  const bool fill = zeroFill && field.zero && !field.left;
  if (!field.left && !fill) Pad(out, missing, u' ');
  out.append(prefix.begin(), prefix.end());
  Pad(out, zeros + (fill ? missing : 0), u'0');
  out.append(digits.begin(), digits.end());
  if (field.left) Pad(out, missing, u' ');
}

std::string_view Sign(const Field& field, bool negative) {
  if (negative) return "-";
  if (field.plus) return "+";
  return field.blank ? " " : "";
}

void AppendInteger(String& out, const Field& field, std::string_view prefix, std::uint64_t value, int base,
                   bool upper) {
  std::array<char, 24> buffer{};
  char* end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, base).ptr;
  if (upper)
    std::transform(buffer.data(), end, buffer.data(), [](char c) { return c >= 'a' ? static_cast<char>(c - 32) : c; });
  std::string_view digits(buffer.data(), static_cast<std::size_t>(end - buffer.data()));
  if (value == 0 && field.precision == 0) digits = {};
  const auto least = static_cast<std::size_t>(std::clamp(field.precision, 0, kMaxPrecision));
  AppendNumber(out, field, prefix, least > digits.size() ? least - digits.size() : 0, digits, field.precision < 0);
}

void AppendHex(String& out, const Field& field, std::uint64_t value, bool upper) {
  const bool prefixed = field.alternative && value != 0;
  AppendInteger(out, field, prefixed ? (upper ? "0X" : "0x") : "", value, 16, upper);
}

void AppendReal(String& out, const Field& field, double value, std::chars_format style) {
  std::array<char, 310 + 1 + kMaxPrecision> buffer{};  // the longest whole part, the point, the digits behind it
  const int precision = field.precision < 0 ? 6 : std::min(field.precision, kMaxPrecision);
  const char* end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::abs(value), style, precision).ptr;
  const std::string_view digits(buffer.data(), static_cast<std::size_t>(end - buffer.data()));
  AppendNumber(out, field, Sign(field, std::signbit(value)), 0, digits, std::isfinite(value));
}

void AppendString(String& out, const Field& field, const Char* text) {
  if (text == nullptr) text = u"(null)";
  // Only looks as far as the precision allows: the text need not end then.
  std::size_t length = 0;
  while ((field.precision < 0 || length < static_cast<std::size_t>(field.precision)) && text[length] != 0) ++length;
  AppendText(out, field, {text, length});
}

// False when the conversion is unknown; nothing was appended then.
bool AppendConversion(String& out, const Field& field, Char conversion, Arguments& arguments) {
  switch (conversion) {
    case u'd':
    case u'i': {
      const std::int64_t value = NextSigned(field, arguments);
      const auto bits = static_cast<std::uint64_t>(value);
      AppendInteger(out, field, Sign(field, value < 0), value < 0 ? 0 - bits : bits, 10, false);
      return true;
    }
    case u'u':
      AppendInteger(out, field, "", NextUnsigned(field, arguments), 10, false);
      return true;
    case u'x':
      AppendHex(out, field, NextUnsigned(field, arguments), false);
      return true;
    case u'X':
      AppendHex(out, field, NextUnsigned(field, arguments), true);
      return true;
    case u'p': {
      const void* pointer = va_arg(arguments.list, const void*);
      AppendInteger(out, field, "0x", reinterpret_cast<std::uintptr_t>(pointer), 16, false);
      return true;
    }
    case u'c': {
      const auto character = static_cast<Char>(va_arg(arguments.list, int));
      AppendText(out, field, {&character, 1});
      return true;
    }
    case u's':
      AppendString(out, field, va_arg(arguments.list, const Char*));
      return true;
    case u'f':
      AppendReal(out, field, va_arg(arguments.list, double), std::chars_format::fixed);
      return true;
    case u'g':
      AppendReal(out, field, va_arg(arguments.list, double), std::chars_format::general);
      return true;
    case u'%':
      out += u'%';
      return true;
    default:
      return false;
  }
}

}  // namespace

void AppendFormat(String& out, const Char* format, std::va_list list) {
  if (format == nullptr) return;
  Arguments arguments{};
  va_copy(arguments.list, list);
  while (*format != 0) {
    if (*format != u'%') {
      out += *format++;
      continue;
    }
    const Char* start = format++;
    const Field field = ReadField(format, arguments);
    if (*format != 0 && AppendConversion(out, field, *format, arguments)) {
      ++format;
    } else {
      out.append(start, format);
    }
  }
  va_end(arguments.list);
}

}  // namespace qen::base
