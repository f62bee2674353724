#include "host/check/gui_check.h"

#include <utility>

namespace qen::host {

GuiCheck::GuiCheck(String description, String script, PhysfsFiles& files)
    : description_(std::move(description)),
      script_(std::move(script)),
      files_(files),
      scenes_(files, [](StringView) {}) {}

analysis::Report GuiCheck::Run(analysis::Settings settings) {
  settings.script = script_;
  if (!fonts_) fonts_.emplace();
  return analysis::Check(description_, {.files = files_, .scenes = scenes_, .fonts = &fonts_->Backend()}, settings);
}

analysis::Report GuiCheck::RunForProblems() {
  analysis::Report report = Run();
  std::erase_if(report.findings,
                [](const analysis::Finding& finding) { return finding.severity < analysis::Severity::Warning; });
  return report;
}

}  // namespace qen::host
