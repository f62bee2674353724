#include "definitions/line_writer.h"

#include <array>
#include <charconv>
#include <limits>

#include "engine/string_converter.h"

namespace qen {
namespace {

// Room for the longest float written with four decimals.
constexpr std::size_t kLongestNumber = std::numeric_limits<float>::max_exponent10 + 16;

}  // namespace

void LineWriter::Add(std::int32_t number) { text_ += StringConverter::ToString(number); }

void LineWriter::Add(Hex number) {
  std::array<char, kLongestNumber> digits{};
  const char* end = std::to_chars(digits.data(), digits.data() + digits.size(), number.value, 16).ptr;
  text_.append(static_cast<const char*>(digits.data()), end);
}

void LineWriter::Add(Fixed number) {
  constexpr int kDecimals = 4;
  std::array<char, kLongestNumber> digits{};
  const char* end =
      std::to_chars(digits.data(), digits.data() + digits.size(), number.value, std::chars_format::fixed, kDecimals)
          .ptr;
  text_.append(static_cast<const char*>(digits.data()), end);
}

}  // namespace qen
