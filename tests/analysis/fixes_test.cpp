#include <gtest/gtest.h>

#include <set>

#include "base/utf.h"
#include "seeded_faults.h"

namespace qen::analysis {
namespace {

std::string Mend(const SoundGui& gui, const Report& report) {
  const std::string& file = report.findings[0].file;
  const std::string& text = gui.files.at(file);
  base::FakeFiles backend;
  backend.Add(base::ToUtf16(file), {text.begin(), text.end()});
  const auto fixed = ApplyFixes(file, report.findings, backend);
  return fixed ? std::string(fixed->bytes.begin(), fixed->bytes.end()) : text;
}

TEST(Analysis, FixesLeaveNothingToBeTold) {
  std::set<Rule> mended;
  for (const auto faults : {ReadingFaults(), NameFaults(), SceneFaults(), CommandAndFileFaults(), TextFaults()}) {
    for (const SeededFault& fault : faults) {
      SoundGui gui;
      fault.spoil(gui);
      const Report report = gui.Run();
      if (report.findings.size() != 1 || report.findings[0].fix.empty()) continue;
      gui.files[report.findings[0].file] = Mend(gui, report);
      // A word of one language that is mended is still one of that language alone.
      const Report after = gui.Run({.severities = {{Rule::UntranslatedText, Severity::Off}}});
      EXPECT_TRUE(after.findings.empty()) << fault.what << ": " << after.findings[0].message;
      mended.insert(fault.rule);
    }
  }
  for (const Rule rule :
       {Rule::UnknownWord, Rule::GluedBrace, Rule::UnclosedQuote, Rule::ByteOrderMark, Rule::BlockWithoutNode,
        Rule::UnknownPage, Rule::UnknownWidget, Rule::BlankInCommand, Rule::AlmostCommand}) {
    EXPECT_TRUE(mended.contains(rule)) << InfoOf(rule).id;
  }
}

}  // namespace
}  // namespace qen::analysis
