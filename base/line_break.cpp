#include "base/line_break.h"

#include <algorithm>
#include <cmath>

namespace qen::base {
namespace {

struct Range {
  Char first, last;
};

// Ideographs, kana and full-width forms; the surrogates are those of the supplementary ideographs.
constexpr Range kEastAsian[] = {{0x2E80, 0x312F}, {0x31F0, 0x31FF}, {0x3400, 0x4DBF},
                                {0x4E00, 0x9FFF}, {0xD840, 0xD8BF}, {0xF900, 0xFAFF},
                                {0xFE30, 0xFE4F}, {0xFF00, 0xFF60}, {0xFFE0, 0xFFE6}};

constexpr StringView kNeverFirst =
    u"、。，．・：；？！゛゜ヽヾゝゞ々ー〜…‥」』】〉》〕）］｝〙〗〟’”ぁぃぅぇぉっゃゅょゎァィゥェォッャュョヮヵヶ!),.:"
    u";?]}%‰";
constexpr StringView kNeverLast = u"「『【〈《〔（［｛〘〖〝‘“([{$￥£＄";

bool Contains(StringView set, Char c) { return set.find(c) != StringView::npos; }

bool IsBlank(Char c) {
  constexpr Char kFigureSpace = 0x2007;  // keeps numbers together
  return c == u' ' || c == u'\t' || c == 0x3000 || (c >= 0x2000 && c <= 0x200B && c != kFigureSpace);
}

bool IsLowSurrogate(Char c) { return c >= 0xDC00 && c < 0xE000; }

bool IsEastAsian(StringView text, std::size_t i) {
  const Char c = IsLowSurrogate(text[i]) && i > 0 ? text[i - 1] : text[i];
  return std::ranges::any_of(kEastAsian, [c](const Range& range) { return c >= range.first && c <= range.last; });
}

// Whether a line may end behind unit `i`, which is not the last.
bool CanBreakBehind(StringView text, std::size_t i) {
  if (IsBlank(text[i + 1])) return false;  // blanks stay together
  if (IsBlank(text[i])) return true;
  if (!IsEastAsian(text, i) && !IsEastAsian(text, i + 1)) return false;
  return !Contains(kNeverFirst, text[i + 1]) && !Contains(kNeverLast, text[i]);
}

StringView WithoutHangingBlanks(StringView line) {
  while (!line.empty() && IsBlank(line.back())) line.remove_suffix(1);
  return line;
}

}  // namespace

float NextTabStop(float pen, float tabWidth) {
  constexpr float kRounding = 1e-3F;  // a pen on a stop may be a little before it
  return (std::floor(pen / tabWidth + kRounding) + 1.0F) * tabWidth;
}

bool BreakLines(StringView text, std::span<const float> advances, float width, float tabWidth,
                std::vector<StringView>& lines) {
  std::size_t begin = 0;
  std::size_t opportunity = 0;  // the last place to break at, behind `begin`
  float pen = 0.0F;
  bool cutsWord = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const float end = text[i] == u'\t' ? NextTabStop(pen, tabWidth) : pen + advances[i];
    const bool startsCluster = end > pen;
    if (end > width && startsCluster && i > begin && !IsBlank(text[i])) {
      const bool fits = opportunity > begin;
      const std::size_t cut = fits ? opportunity : i;
      cutsWord = cutsWord || !fits;
      lines.push_back(WithoutHangingBlanks(text.substr(begin, cut - begin)));
      begin = cut;
      pen = 0.0F;
      i = cut - 1;  // what was moved to the new line is measured again
      continue;
    }
    pen = end;
    const bool clusterEnds = i + 1 < text.size() && (advances[i + 1] > 0.0F || text[i + 1] == u'\t');
    if (clusterEnds && CanBreakBehind(text, i)) opportunity = i + 1;
  }
  lines.push_back(text.substr(begin));
  return cutsWord;
}

}  // namespace qen::base
