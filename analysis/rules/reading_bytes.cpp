// Encodings, and where files begin and end.
#include <array>
#include <cstdio>
#include <string_view>

#include "analysis/rules/reading_pass.h"
#include "formats/definition_syntax.h"
#include "formats/utf8.h"

namespace qen::analysis {
namespace {

using formats::Encoding;

void CheckMark(const Source& source, Findings& findings) {
  if (!source.Text().HasMark() || formats::SkipsMark(source.Kind())) return;
  const formats::Range16 mark{0, 1};
  findings.Add(Rule::ByteOrderMark, source, mark, "a byte-order mark, which is taken for a part of the first word",
               {{mark, u""}});
}

std::string HexOf(std::uint8_t byte) {
  std::array<char, 3> text{};
  std::snprintf(text.data(), text.size(), "%02x", byte);
  return text.data();
}

void CheckUtf8(const Source& source, Findings& findings) {
  if (source.Text().GetEncoding() != Encoding::Utf8) return;
  const auto bytes = source.Text().Bytes();
  std::string_view rest(reinterpret_cast<const char*>(bytes.data()), bytes.size());
  std::size_t unit = 0;
  while (!rest.empty()) {
    const formats::Utf8Sequence sequence = formats::DecodeUtf8(rest);
    if (sequence.isWrong) {
      const std::string byte = HexOf(static_cast<std::uint8_t>(rest[0]));
      findings.Add(Rule::WrongBytes, source, {unit, unit + 1}, "the byte " + byte + " is no UTF-8 here");
      return;
    }
    unit += sequence.character < 0x10000 ? 1 : 2;
    rest.remove_prefix(sequence.length);
  }
}

void CheckEnd(const Source& source, Findings& findings) {
  const StringView text = source.Text().Text();
  const std::size_t end = text.find(u'\0');
  if (end == StringView::npos) return;
  const String passed = String(formats::kSeparators) + u'\0';
  const std::size_t behind = text.find_first_not_of(passed, end);
  if (behind == StringView::npos) return;
  findings.Add(Rule::TextBehindEnd, source, {behind, source.Text().LineEnd(behind)},
               "nobody reads this: the file ends at the U+0000 before it");
}

bool IsShort(const Source& source) {
  const formats::SourceText& text = source.Text();
  const bool isUtf8 = text.GetEncoding() == Encoding::Utf8;
  const std::size_t bytes = isUtf8 ? text.Text().size() * sizeof(Char) : text.Bytes().size();
  return formats::SkipsMark(source.Kind()) && bytes < formats::kShortestFile;
}

}  // namespace

bool CheckBytes(const Source& source, Findings& findings) {
  if (source.Text().GetEncoding() == Encoding::Utf16BE) {
    const std::size_t begin = source.Begin();
    findings.AddFault(Rule::WrongEncoding, source, {begin, source.Text().LineEnd(begin)},
                      "the file is in UTF-16 with the big end first, which nobody reads");
    return false;
  }
  if (IsShort(source)) {
    findings.AddFault(Rule::ShortFile, source, {0, source.Text().Text().size()},
                      "the file has less than two characters, so it is refused");
    return false;
  }
  CheckMark(source, findings);
  CheckUtf8(source, findings);
  CheckEnd(source, findings);
  return true;
}

}  // namespace qen::analysis
