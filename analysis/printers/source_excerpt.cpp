#include "analysis/printers/source_excerpt.h"

#include <algorithm>

#include "base/utf.h"

namespace qen::analysis {
namespace {

constexpr StringView kCut = u"...";

struct WideRange {
  char32_t first;
  char32_t last;
};

// Characters that terminals show two columns wide.
constexpr WideRange kWide[] = {{0x1100, 0x115F},   {0x2E80, 0x303E},   {0x3041, 0xA4CF},  {0xAC00, 0xD7A3},
                               {0xF900, 0xFAFF},   {0xFE30, 0xFE6F},   {0xFF00, 0xFF60},  {0xFFE0, 0xFFE6},
                               {0x1F300, 0x1F64F}, {0x1F900, 0x1F9FF}, {0x20000, 0x3FFFD}};

// Characters that are shown over the one before.
constexpr WideRange kWithoutWidth[] = {{0x0300, 0x036F}, {0x0591, 0x05BD}, {0x0610, 0x061A},
                                       {0x064B, 0x065F}, {0x200B, 0x200F}, {0x202A, 0x202E},
                                       {0x20D0, 0x20FF}, {0xFE00, 0xFE0F}, {0xFE20, 0xFE2F}};

template <std::size_t count>
bool IsIn(const WideRange (&ranges)[count], char32_t c) {
  return std::ranges::any_of(ranges, [c](const WideRange& range) { return c >= range.first && c <= range.last; });
}

bool IsSurrogate(Char unit, unsigned kind) { return (static_cast<unsigned>(unit) & 0xFC00U) == kind; }
bool IsHigh(Char unit) { return IsSurrogate(unit, 0xD800U); }
bool IsLow(Char unit) { return IsSurrogate(unit, 0xDC00U); }

// The columns that a unit of the text takes; the first of a pair takes those of both.
std::size_t WidthAt(StringView text, std::size_t at) {
  if (at > 0 && IsLow(text[at]) && IsHigh(text[at - 1])) return 0;
  auto c = static_cast<char32_t>(text[at]);
  if (IsHigh(text[at]) && at + 1 < text.size() && IsLow(text[at + 1]))
    c = 0x10000U + ((c & 0x3FFU) << 10U) + (static_cast<char32_t>(text[at + 1]) & 0x3FFU);
  if (IsIn(kWithoutWidth, c)) return 0;
  return IsIn(kWide, c) ? 2 : 1;
}

std::size_t WidthOf(StringView text) {
  std::size_t width = 0;
  for (std::size_t i = 0; i < text.size(); ++i) width += WidthAt(text, i);
  return width;
}

// As wide as the text, whose tabs it keeps.
std::string BlanksFor(StringView text) {
  std::string blanks;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == u'\t') {
      blanks += '\t';
    } else {
      blanks.append(WidthAt(text, i), ' ');
    }
  }
  return blanks;
}

// What a terminal would obey is shown as a blank.
String Shown(String line) {
  const auto isControl = [](Char c) { return (c < u' ' && c != u'\t') || (c >= 0x7F && c < 0xA0); };
  std::ranges::replace_if(line, isControl, u' ');
  return line;
}

// Away from the middle of a pair.
std::size_t Whole(StringView text, std::size_t at) {
  return at > 0 && at < text.size() && IsLow(text[at]) && IsHigh(text[at - 1]) ? at - 1 : at;
}

}  // namespace

Excerpt ExcerptOf(const Finding& finding) {
  constexpr std::size_t kMost = 160;   // units of a line
  constexpr std::size_t kBefore = 60;  // of them before the place, when it is cut
  const String line = Shown(base::ToUtf16(finding.line));
  const Span& span = finding.span;
  const std::size_t begin = std::min<std::size_t>(span.begin.column - 1, line.size());
  const bool isOneLine = span.end.line == span.begin.line;
  const std::size_t end = isOneLine ? std::clamp<std::size_t>(span.end.column - 1, begin, line.size()) : line.size();
  const bool isLong = line.size() > kMost;
  const std::size_t from = isLong && begin > kBefore ? Whole(line, begin - kBefore) : 0;
  const std::size_t to = isLong ? Whole(line, std::min(from + kMost, line.size())) : line.size();
  const String head = String(from > 0 ? kCut : StringView()) + line.substr(from, begin - from);
  const String marked = line.substr(begin, std::min(end, to) - begin);
  const String rest = line.substr(begin + marked.size(), to - begin - marked.size());
  const String tail(to < line.size() ? kCut : StringView());
  return {.line = base::ToUtf8(head + marked + rest + tail),
          .indent = BlanksFor(head),
          .carets = std::string(std::max<std::size_t>(WidthOf(marked), 1), '^')};
}

}  // namespace qen::analysis
