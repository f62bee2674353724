#include "seeded_faults.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>
#include <vector>

#include "base/utf.h"
#include "formats/source_text.h"

namespace qen::analysis {
namespace {

std::string Describe(const std::vector<Finding>& findings) {
  std::string text;
  for (const Finding& finding : findings) {
    text += finding.file + ':' + std::to_string(finding.span.begin.line) + ':' +
            std::to_string(finding.span.begin.column) + ": " + finding.message + " [" + InfoOf(finding.rule).id + "]\n";
  }
  return text;
}

Place PlaceOf(const SoundGui& gui, const SeededFault& fault) {
  const std::string& bytes = gui.files.at(fault.file);
  const formats::SourceText text({bytes.begin(), bytes.end()});
  std::string wanted = fault.at;
  const std::size_t mark = wanted.find('|');
  if (mark != std::string::npos) wanted.erase(mark, 1);
  const std::size_t found = text.Text().find(base::ToUtf16(wanted));
  EXPECT_NE(found, StringView::npos) << fault.file << " has no " << wanted;
  const formats::Place place = text.PlaceOf(found + (mark == std::string::npos ? 0 : mark));
  return {place.line, place.column};
}

class SeededFaults : public testing::TestWithParam<SeededFault> {};

TEST_P(SeededFaults, AreToldAtTheirPlaceAndNothingElseIs) {
  SoundGui gui;
  GetParam().spoil(gui);
  const Report report = gui.Run();
  ASSERT_EQ(report.findings.size(), 1U) << Describe(report.findings);
  const Finding& finding = report.findings[0];
  EXPECT_EQ(InfoOf(finding.rule).id, std::string(InfoOf(GetParam().rule).id)) << Describe(report.findings);
  EXPECT_EQ(finding.file, GetParam().file);
  EXPECT_EQ(finding.span.begin, PlaceOf(gui, GetParam())) << Describe(report.findings);
}

std::vector<SeededFault> AllFaults() {
  std::vector<SeededFault> all;
  for (const auto faults : {ReadingFaults(), NameFaults(), SceneFaults(), CommandAndFileFaults(), TextFaults()}) {
    all.insert(all.end(), faults.begin(), faults.end());
  }
  return all;
}

INSTANTIATE_TEST_SUITE_P(Analysis, SeededFaults, testing::ValuesIn(AllFaults()),
                         [](const auto& row) { return std::string(row.param.what); });

TEST(Analysis, TellsNothingOfASoundGui) {
  SoundGui gui;
  EXPECT_EQ(Describe(gui.Run().findings), "");
}

TEST(Analysis, EveryRuleHasASeededFault) {
  std::vector<SeededFault> faults = AllFaults();
  for (const RuleInfo& rule : Rules()) {
    EXPECT_TRUE(std::ranges::count(faults, rule.rule, &SeededFault::rule) > 0) << rule.id;
  }
}

}  // namespace
}  // namespace qen::analysis
