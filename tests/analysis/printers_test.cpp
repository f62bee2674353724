#include "analysis/printers.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <ostream>

#include "sound_gui.h"

namespace qen::analysis {
namespace {

Finding FindingAt(const Span& span, std::string line) {
  return {.file = "pages\\a b%.txt", .span = span, .message = "it is so", .line = std::move(line)};
}

struct ExcerptRow {
  const char* what;
  Span span;
  std::string line;
  std::string shown;  // with the marks, behind the line that tells the finding
};

void PrintTo(const ExcerptRow& row, std::ostream* out) { *out << row.what; }

const ExcerptRow kExcerpts[] = {
    {"Plain", {{3, 6}, {3, 9}}, "item bad {", "item bad {\n     ^^^\n"},
    {"Tabs", {{3, 4}, {3, 6}}, "\ta\tbc", "\ta\tbc\n\t \t^^\n"},
    {"WideBefore", {{3, 4}, {3, 5}}, "日本 x", "日本 x\n     ^\n"},
    {"WideMarked", {{3, 2}, {3, 4}}, "x日本y", "x日本y\n ^^^^\n"},
    {"PairOfUnits", {{3, 3}, {3, 4}}, "😀x", "😀x\n  ^\n"},
    {"Accent", {{3, 3}, {3, 4}}, "e\u0301x", "e\u0301x\n ^\n"},
    {"Nothing", {{3, 3}, {3, 3}}, "ab", "ab\n  ^\n"},
    {"BehindTheEnd", {{3, 9}, {3, 12}}, "ab", "ab\n  ^\n"},
    {"SeveralLines", {{3, 3}, {5, 1}}, "a bcd", "a bcd\n  ^^^\n"},
    {"Escape", {{3, 2}, {3, 3}}, "\x1b[x", " [x\n ^\n"},
    {"LongBegins", {{3, 2}, {3, 4}}, std::string(200, 'a'), std::string(160, 'a') + "...\n ^^\n"},
    {"LongEnds",
     {{3, 200}, {3, 201}},
     std::string(199, 'a') + 'b',
     "..." + std::string(60, 'a') + "b\n" + std::string(63, ' ') + "^\n"},
    {"LongAllMarked",
     {{3, 101}, {3, 901}},
     std::string(1000, 'a'),
     "..." + std::string(160, 'a') + "...\n" + std::string(63, ' ') + std::string(100, '^') + '\n'},
    {"NoLine", {{1, 1}, {1, 1}}, "", ""},
};

class Excerpts : public testing::TestWithParam<ExcerptRow> {};

TEST_P(Excerpts, MarkThePlace) {
  const std::string text = PrintText({.findings = {FindingAt(GetParam().span, GetParam().line)}}, false);
  const std::size_t begin = text.find('\n') + 1;
  EXPECT_EQ(text.substr(begin), GetParam().shown + "1 error\n");
}

INSTANTIATE_TEST_SUITE_P(Printers, Excerpts, testing::ValuesIn(kExcerpts),
                         [](const auto& row) { return std::string(row.param.what); });

Report ReportOfEach() {
  Report report{.findings = std::vector<Finding>(4, FindingAt({{3, 2}, {3, 4}}, "abcd")), .silenced = 2, .files = 7};
  report.findings[0].severity = report.findings[1].severity = Severity::Error;
  report.findings[2].severity = Severity::Note;
  report.findings[3].severity = Severity::Warning;
  report.findings[3].rule = Rule::UnknownPage;
  report.findings[3].fix = {{{{3, 2}, {3, 4}}, "x\"\xC3\xA4"}, {{{4, 1}, {4, 1}}, ""}};
  return report;
}

TEST(Printers, TellPlaceSeverityAndRule) {
  Report report{.findings = {FindingAt({{3, 2}, {3, 4}}, "abcd")}};
  report.findings[0].severity = Severity::Note;
  EXPECT_EQ(PrintText(report, false), "pages\\a b%.txt:3:2: note: it is so [unknown-word]\nabcd\n ^^\n1 note\n");
  EXPECT_EQ(PrintText(report, true),
            "\x1b[1mpages\\a b%.txt:3:2:\x1b[0m \x1b[1;36mnote:\x1b[0m it is so [unknown-word]\n"
            "abcd\n \x1b[1;32m^^\x1b[0m\n1 note\n");
}

TEST(Printers, CountWhatIsFound) {
  const std::string text = PrintText(ReportOfEach(), false);
  EXPECT_EQ(text.substr(text.rfind('\n', text.size() - 2) + 1), "2 errors, 1 warning, 1 note; 2 silenced\n");
  EXPECT_EQ(PrintText({.files = 12}, false), "nothing found in 12 files\n");
  EXPECT_EQ(PrintText({.silenced = 1, .files = 1}, false), "nothing found in 1 file; 1 silenced\n");
}

TEST(Printers, WriteJson) {
  const auto json = nlohmann::json::parse(PrintJson(ReportOfEach()));
  ASSERT_EQ(json.at("findings").size(), 4U);
  EXPECT_EQ(json["findings"][2], nlohmann::json::parse(R"({"file": "pages\\a b%.txt", "line": 3, "column": 2,
    "endLine": 3, "endColumn": 4, "severity": "note", "rule": "unknown-word", "message": "it is so", "fix": null})"));
  EXPECT_EQ(json["findings"][3]["fix"], nlohmann::json::parse(R"([
    {"line": 3, "column": 2, "endLine": 3, "endColumn": 4, "text": "x\"ä"},
    {"line": 4, "column": 1, "endLine": 4, "endColumn": 1, "text": ""}])"));
  EXPECT_EQ(nlohmann::json::parse(PrintJson({}))["findings"], nlohmann::json::array());
}

TEST(Printers, WriteSarif) {
  const auto json = nlohmann::json::parse(PrintSarif(ReportOfEach(), "1.2"));
  const auto& run = json.at("runs").at(0);
  const auto& rules = run.at("tool").at("driver").at("rules");
  EXPECT_EQ(run["tool"]["driver"]["version"], "1.2");
  EXPECT_EQ(rules.size(), kRuleCount);
  const auto& result = run.at("results").at(3);
  EXPECT_EQ(result["ruleId"], "unknown-page");
  EXPECT_EQ(rules.at(result["ruleIndex"].get<std::size_t>())["id"], "unknown-page");
  EXPECT_EQ(result["level"], "warning");
  const auto place = nlohmann::json::parse(R"({"artifactLocation": {"uri": "pages/a%20b%25.txt"},
    "region": {"startLine": 3, "startColumn": 2, "endLine": 3, "endColumn": 4}})");
  EXPECT_EQ(result["locations"], nlohmann::json::array({{{"physicalLocation", place}}}));
  const auto& change = result.at("fixes").at(0).at("artifactChanges").at(0);
  EXPECT_EQ(change["artifactLocation"], place["artifactLocation"]);
  EXPECT_EQ(change["replacements"][0]["deletedRegion"], place["region"]);
  EXPECT_EQ(change["replacements"][0]["insertedContent"]["text"], "x\"ä");
  EXPECT_FALSE(run["results"][0].contains("fixes"));
}

}  // namespace
}  // namespace qen::analysis
