#include "host/fonts/text_units.h"

#include <hb.h>

namespace qen::host {
namespace {

constexpr std::uint32_t kNoWidth = 0x200B;
constexpr std::uint32_t kReplacement = 0xFFFD;

bool IsHigh(Char unit) { return unit >= 0xD800 && unit < 0xDC00; }
bool IsLow(Char unit) { return unit >= 0xDC00 && unit < 0xE000; }

hb_unicode_general_category_t CategoryOf(std::uint32_t code) {
  return hb_unicode_general_category(hb_unicode_funcs_get_default(), code);
}

std::uint32_t Visible(std::uint32_t code) {
  const hb_unicode_general_category_t category = CategoryOf(code);
  const bool separates = category == HB_UNICODE_GENERAL_CATEGORY_CONTROL ||
                         category == HB_UNICODE_GENERAL_CATEGORY_LINE_SEPARATOR ||
                         category == HB_UNICODE_GENERAL_CATEGORY_PARAGRAPH_SEPARATOR;
  return separates ? kNoWidth : code;
}

std::uint32_t CodeAt(StringView text, std::size_t i) {
  const Char unit = text[i];
  if (!IsHigh(unit) && !IsLow(unit)) return Visible(unit);
  const bool pair = IsHigh(unit) && i + 1 < text.size() && IsLow(text[i + 1]);
  return pair ? 0x10000U + ((unit - 0xD800U) << 10U) + (text[i + 1] - 0xDC00U) : kReplacement;
}

}  // namespace

void Characters::Read(StringView text) {
  codes.clear();
  ofUnit.clear();
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto position = static_cast<std::uint32_t>(codes.size());
    codes.push_back(CodeAt(text, i));
    ofUnit.push_back(position);
    if (codes.back() < 0x10000) continue;
    ofUnit.push_back(position);
    ++i;
  }
}

bool IsExtension(std::uint32_t code) {
  switch (CategoryOf(code)) {
    case HB_UNICODE_GENERAL_CATEGORY_SPACING_MARK:
    case HB_UNICODE_GENERAL_CATEGORY_ENCLOSING_MARK:
    case HB_UNICODE_GENERAL_CATEGORY_NON_SPACING_MARK:
      return true;
    default:
      return IsInvisible(code);
  }
}

bool IsInvisible(std::uint32_t code) {
  const bool variationSelector = (code >= 0xFE00 && code <= 0xFE0F) || (code >= 0xE0100 && code <= 0xE01EF);
  return variationSelector || CategoryOf(code) == HB_UNICODE_GENERAL_CATEGORY_FORMAT;
}

}  // namespace qen::host
