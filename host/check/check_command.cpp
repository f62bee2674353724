#include "host/check/check_command.h"

#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <stdexcept>

#include "analysis/printers.h"
#include "base/utf.h"
#include "host/check/check_fixes.h"

namespace qen::host {
namespace {

using analysis::Report;
using analysis::Severity;

Severity ParseSeverity(const std::string& rule, const std::string& name) {
  for (std::size_t i = 0; i < analysis::kSeverityNames.size(); ++i) {
    if (name == analysis::kSeverityNames[i]) return static_cast<Severity>(i);
  }
  throw std::runtime_error("--rule " + rule + ": " + name + " is not off, note, warning or error");
}

// "unused-text=off"
void SetRule(const std::string& text, analysis::Settings& settings) {
  const std::size_t sign = text.find('=');
  if (sign == std::string::npos) throw std::runtime_error("--rule " + text + " is no ID=LEVEL");
  const analysis::RuleInfo* rule = analysis::FindRule(text.substr(0, sign));
  if (rule == nullptr) throw std::runtime_error("--rule " + text + ": there is no rule " + text.substr(0, sign));
  settings.severities[rule->rule] = ParseSeverity(text, text.substr(sign + 1));
}

// Tells on a terminal how far it is, when it takes long.
class Progress {
 public:
  void operator()(std::size_t page, std::size_t pages) {
    using std::chrono::steady_clock;
    constexpr std::chrono::milliseconds kPatience{500};
    if (isatty(STDERR_FILENO) == 0 || steady_clock::now() - last_ < kPatience) return;
    last_ = steady_clock::now();
    isShown_ = true;
    std::fprintf(stderr, "\rpage %zu of %zu", page + 1, pages);
  }

  void Clear() const {
    if (isShown_) std::fputs("\r\033[K", stderr);
  }

 private:
  std::chrono::steady_clock::time_point last_ = std::chrono::steady_clock::now();
  bool isShown_ = false;
};

analysis::Settings ToSettings(const CheckOptions& options) {
  analysis::Settings settings;
  for (const std::string& language : options.languages) settings.languages.push_back(base::ToUtf16(language));
  for (const std::string& rule : options.rules) SetRule(rule, settings);
  return settings;
}

void RequireLanguages(const analysis::Settings& settings, const Report& report) {
  for (const String& language : settings.languages) {
    if (language == analysis::kPseudoLanguage || std::ranges::count(report.languages, language) > 0) continue;
    std::string known;
    for (const String& name : report.languages) known += (known.empty() ? "" : ", ") + base::ToUtf8(name);
    throw std::runtime_error("there is no language " + base::ToUtf8(language) + ", only: " + known);
  }
}

std::string Print(const Report& report, FindingFormat format) {
  switch (format) {
    case FindingFormat::Json:
      return analysis::PrintJson(report);
    case FindingFormat::Sarif:
      return analysis::PrintSarif(report, GUIHOST_VERSION);
    case FindingFormat::Text:
      break;
  }
  return analysis::PrintText(report, isatty(STDOUT_FILENO) != 0);
}

}  // namespace

int RunCheckCommand(const CheckOptions& options, GuiCheck& check, PhysfsFiles& files) {
  analysis::Settings settings = ToSettings(options);
  Progress progress;
  settings.onPage = std::ref(progress);
  Report report = check.Run(settings);
  progress.Clear();
  RequireLanguages(settings, report);
  if (options.fix && FixFiles(report, files)) {
    report = check.Run(settings);
    progress.Clear();
  }
  std::fputs(Print(report, options.format).c_str(), stdout);
  const bool failed = report.Count(Severity::Error) > 0 || (options.strict && report.Count(Severity::Warning) > 0);
  return failed ? 1 : 0;
}

}  // namespace qen::host
