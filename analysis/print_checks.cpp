// Prints the rules for the documents, behind a line "[docs checks]".
#include <cstdio>

#include "analysis/rules.h"

namespace qen::analysis {
namespace {

void PrintRules() {
  std::printf("[docs checks]\n");
  for (const RuleInfo& rule : Rules()) {
    std::printf("\n### %s\n\n%s: %s.\n\n```\n%s\n```\n\n%s\n", rule.id,
                kSeverityNames[static_cast<std::size_t>(rule.severity)], rule.help, rule.example, rule.remedy);
  }
  std::printf("\n");
}

}  // namespace
}  // namespace qen::analysis

int main() { qen::analysis::PrintRules(); }
