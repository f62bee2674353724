#include <algorithm>

#include "analysis/check.h"
#include "analysis/source.h"
#include "base/utf.h"

namespace qen::analysis {
namespace {

std::size_t UnitAt(const formats::SourceText& text, const Place& place) {
  return text.BeginOf(place.line) + place.column - 1;
}

formats::Edit EditOf(const formats::SourceText& text, const Finding& finding, const Replacement& part) {
  // A byte-order mark has no column.
  if (finding.rule == Rule::ByteOrderMark) return {{0, 1}, {}};
  return {{UnitAt(text, part.span.begin), UnitAt(text, part.span.end)}, base::ToUtf16(part.text)};
}

// The findings are sorted by their places, and so are the edits by and large: only the last one can be in the way.
bool Overlap(const std::vector<formats::Edit>& edits, const std::vector<formats::Edit>& more) {
  return !edits.empty() && std::ranges::any_of(more, [&](const formats::Edit& edit) {
    return edit.range.begin < edits.back().range.end;
  });
}

}  // namespace

std::optional<FixedFile> ApplyFixes(const std::string& file, const std::vector<Finding>& findings,
                                    base::IFileBackend& files) {
  std::vector<std::uint8_t> bytes;
  if (!files.Read(base::ToUtf16(file), bytes)) return std::nullopt;
  const formats::SourceText text(std::move(bytes));
  std::vector<formats::Edit> edits;
  FixedFile fixed;
  for (const Finding& finding : findings) {
    if (finding.file != file || finding.fix.empty()) continue;
    std::vector<formats::Edit> more;
    for (const Replacement& part : finding.fix) more.push_back(EditOf(text, finding, part));
    if (Overlap(edits, more)) continue;
    edits.insert(edits.end(), more.begin(), more.end());
    fixed.mended.push_back(&finding);
  }
  if (fixed.mended.empty()) return std::nullopt;
  fixed.bytes = text.Edited(std::move(edits));
  return fixed;
}

}  // namespace qen::analysis
