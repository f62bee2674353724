#include <algorithm>
#include <array>

#include "analysis/printers.h"
#include "analysis/printers/source_excerpt.h"

namespace qen::analysis {
namespace {

constexpr const char* kBold = "\x1b[1m";
constexpr const char* kCaretColor = "\x1b[1;32m";
constexpr const char* kPlain = "\x1b[0m";
constexpr std::array<const char*, 4> kSeverityColors{"", "\x1b[1;36m", "\x1b[1;33m", "\x1b[1;31m"};

class TextPrinter {
 public:
  explicit TextPrinter(bool colored) : colored_(colored) {}

  std::string Print(const Report& report) {
    for (const Finding& finding : report.findings) PrintFinding(finding);
    PrintCounts(report);
    return std::move(out_);
  }

  std::string Print(const Finding& finding) {
    PutLine(finding);
    return std::move(out_);
  }

 private:
  void Put(const std::string& text, const char* color) { out_ += colored_ ? color + text + kPlain : text; }

  void PutLine(const Finding& finding) {
    const auto severity = static_cast<std::size_t>(finding.severity);
    const Place& begin = finding.span.begin;
    Put(finding.file + ':' + std::to_string(begin.line) + ':' + std::to_string(begin.column) + ':', kBold);
    out_ += ' ';
    Put(std::string(kSeverityNames[severity]) + ':', kSeverityColors[severity]);
    out_ += ' ' + finding.message + " [" + InfoOf(finding.rule).id + ']';
  }

  void PrintFinding(const Finding& finding) {
    PutLine(finding);
    out_ += '\n';
    if (finding.line.empty()) return;
    const Excerpt excerpt = ExcerptOf(finding);
    out_ += excerpt.line + '\n' + excerpt.indent;
    Put(excerpt.carets, kCaretColor);
    out_ += '\n';
  }

  void PrintCounts(const Report& report) {
    std::string counts;
    for (const Severity severity : {Severity::Error, Severity::Warning, Severity::Note}) {
      const std::size_t count = report.Count(severity);
      if (count == 0) continue;
      if (!counts.empty()) counts += ", ";
      counts += std::to_string(count) + ' ' + kSeverityNames[static_cast<std::size_t>(severity)];
      if (count > 1) counts += 's';
    }
    const std::string files = std::to_string(report.files) + (report.files == 1 ? " file" : " files");
    out_ += counts.empty() ? "nothing found in " + files : counts;
    if (report.silenced > 0) out_ += "; " + std::to_string(report.silenced) + " silenced";
    out_ += '\n';
  }

  bool colored_;
  std::string out_;
};

}  // namespace

std::string PrintLine(const Finding& finding) { return TextPrinter(false).Print(finding); }

std::string PrintText(const Report& report, bool colored) { return TextPrinter(colored).Print(report); }

}  // namespace qen::analysis
