#include "analysis/rules/reading_pass.h"
#include "analysis/rules/rule_groups.h"

namespace qen::analysis {

void CheckReading(const Source& source, Findings& findings) {
  if (!CheckBytes(source, findings)) return;
  ReadingPass pass(source, findings);
  CheckSigns(pass);
  CheckForm(pass);
  CheckKinds(pass);
  CheckValues(pass);
  CheckBars(pass);
  CheckBlocks(pass);
  CheckStrays(pass);
}

}  // namespace qen::analysis
