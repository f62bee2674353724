#include "analysis/findings.h"

#include <algorithm>
#include <sstream>
#include <tuple>

#include "analysis/words.h"
#include "base/utf.h"

namespace qen::analysis {
namespace {

constexpr StringView kSilence = u"check: off";

Span ToSpan(const formats::SourceText& text, formats::Range16 range) {
  const formats::Place begin = text.PlaceOf(range.begin);
  const formats::Place end = text.PlaceOf(range.end);
  return {{begin.line, begin.column}, {end.line, end.column}};
}

// A file may be one line, and all of it wrong.
std::string ShownLineOf(const formats::SourceText& text, std::size_t unit) {
  constexpr std::size_t kMost = 4096;
  const StringView line = text.LineOf(unit);
  return line.size() > kMost ? std::string() : base::ToUtf8(line);
}

}  // namespace

void Findings::Announce(const Source& source) {
  order_.emplace(&source, order_.size());
  for (const formats::Stray& stray : source.Reading().strays) {
    const formats::Token& token = source.TokenAt(stray.word);
    if (token.isQuoted && token.value.starts_with(kSilence)) ReadSilencing(source, stray.word);
  }
}

void Findings::ReadSilencing(const Source& source, std::size_t token) {
  const formats::Place place = source.Text().PlaceOf(source.RangeAt(token).begin);
  std::istringstream ids(base::ToUtf8(source.ValueAt(token).substr(kSilence.size())));
  for (std::string id; ids >> id;) {
    if (const RuleInfo* rule = FindRule(id)) {
      for (const std::uint32_t line : {place.line, place.line + 1}) silenced_.insert({{&source, line}, rule->rule});
    } else {
      Add(Rule::UnknownRule, source, token, "there is no rule " + Quoted(base::ToUtf16(id)));
    }
  }
}

Severity Findings::SeverityOf(Rule rule) const {
  const auto set = settings_.severities.find(rule);
  return set != settings_.severities.end() ? set->second : InfoOf(rule).severity;
}

bool Findings::IsSilenced(Rule rule, const Source& source, std::uint32_t line) const {
  return silenced_.contains({{&source, line}, rule});
}

void Findings::Add(Rule rule, const Source& source, formats::Range16 range, std::string message,
                   const std::vector<formats::Edit>& fix) {
  const Severity severity = SeverityOf(rule);
  if (severity == Severity::Off) return;
  const formats::SourceText& text = source.Text();
  Finding finding{.file = base::ToUtf8(source.Name()),
                  .span = ToSpan(text, range),
                  .severity = severity,
                  .rule = rule,
                  .message = std::move(message),
                  .line = ShownLineOf(text, range.begin)};
  if (IsSilenced(rule, source, finding.span.begin.line)) {
    ++silencedCount_;
    return;
  }
  for (const formats::Edit& edit : fix) finding.fix.push_back({ToSpan(text, edit.range), base::ToUtf8(edit.text)});
  const auto place = order_.find(&source);
  found_.emplace_back(place != order_.end() ? place->second : order_.size(), std::move(finding));
}

void Findings::AddFault(Rule rule, const Source& source, formats::Range16 range, std::string message) {
  const std::size_t before = found_.size();
  Add(rule, source, range, std::move(message));
  if (found_.size() > before) found_.back().second.keepsFromLoading = true;
}

void Findings::AddFault(Rule rule, const String& file, std::string message) {
  const Severity severity = SeverityOf(rule);
  if (severity == Severity::Off) return;
  Finding finding{.file = base::ToUtf8(file), .severity = severity, .rule = rule, .message = std::move(message)};
  finding.keepsFromLoading = true;
  found_.emplace_back(0, std::move(finding));
}

Report Findings::Take() {
  const auto key = [](const std::pair<std::size_t, Finding>& entry) {
    return std::tie(entry.first, entry.second.span, entry.second.rule, entry.second.message);
  };
  std::ranges::stable_sort(found_, [&key](const auto& a, const auto& b) { return key(a) < key(b); });
  Report report{.silenced = silencedCount_, .files = order_.size()};
  report.findings.reserve(found_.size());
  for (auto& [order, finding] : found_) report.findings.push_back(std::move(finding));
  found_.clear();
  return report;
}

}  // namespace qen::analysis
