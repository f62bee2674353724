// The command `check` as people and build servers give it, and the same findings elsewhere in the program.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <algorithm>
#include <nlohmann/json.hpp>
#include <string>

#include "tests/host/guihost_run.h"
#include "tests/host/zip_file.h"

namespace qen::host {
namespace {

using ::testing::AllOf;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;

class CheckCommandTest : public GuihostTest {
 protected:
  int Check(const std::string& arguments) { return WEXITSTATUS(Run("check " + arguments)); }

  const std::string misspelled = "name scenes\\first.glb\r\n\r\nitem ~bSquare\r\n{\r\n\ttoltip 1 \"Größe\"\r\n}\r\n";
};

TEST_F(CheckCommandTest, TellsMistakesAtTheirPlaceAndEndsWithAStatus) {
  EXPECT_EQ(Check("Gui.txt --strict --rule untranslated-text=off"), 0) << out;
  folder.Write("Pages/First.txt", misspelled);
  EXPECT_EQ(Check("Gui.txt"), 1);
  EXPECT_THAT(out, HasSubstr("pages\\first.txt:5:2: error: unknown word \"toltip\", did you mean \"tooltip\"? "
                             "[unknown-word]\n\ttoltip 1 \"Größe\"\n\t^^^^^^\n"));
  EXPECT_THAT(out, HasSubstr("1 error"));
  EXPECT_EQ(Check("Gui.txt --rule unknown-word=note"), 0) << "notes alone are no failure";
  EXPECT_EQ(Check("Gui.txt --rule unknown-word=warning"), 0);
  EXPECT_EQ(Check("Gui.txt --rule unknown-word=warning --strict"), 1);
  folder.Write("Pages/First.txt", "name scenes\\first.glb \"check: off unknown-word\" toltip");
  EXPECT_EQ(Check("Gui.txt"), 0) << out;
  EXPECT_THAT(out, HasSubstr("1 silenced"));
}

TEST_F(CheckCommandTest, SaysWhyItCouldNotRun) {
  const char* rows[][2] = {{"nosuch.txt", "cannot read nosuch.txt: no such file"},
                           {"", "GUI_DESCRIPTION"},
                           {"Gui.txt --format xml", "--format: xml is not text, json or sarif"},
                           {"Gui.txt --rule nosuch=off", "there is no rule nosuch"},
                           {"Gui.txt --rule unknown-word=loud", "loud is not off, note, warning or error"},
                           {"Gui.txt --language french", "there is no language french, only: english, german"}};
  for (const auto& [arguments, complaint] : rows) {
    EXPECT_EQ(Check(arguments), 2) << arguments;
    EXPECT_THAT(err, AllOf(testing::StartsWith("guihost: "), HasSubstr(complaint), EndsWith("\n"))) << arguments;
  }
}

TEST_F(CheckCommandTest, PrintsForPrograms) {
  folder.Write("Pages/First.txt", misspelled);
  EXPECT_EQ(Check("Gui.txt --format json"), 1);
  const auto findings = nlohmann::json::parse(out).at("findings");
  const nlohmann::json fix = {{{"line", 5}, {"column", 2}, {"endLine", 5}, {"endColumn", 8}, {"text", "tooltip"}}};
  const nlohmann::json wanted = {{"file", "pages\\first.txt"},
                                 {"line", 5},
                                 {"column", 2},
                                 {"endLine", 5},
                                 {"endColumn", 8},
                                 {"severity", "error"},
                                 {"rule", "unknown-word"},
                                 {"message", "unknown word \"toltip\", did you mean \"tooltip\"?"},
                                 {"fix", fix}};
  EXPECT_EQ(std::ranges::count(findings, wanted), 1) << out;
  EXPECT_EQ(Check("Gui.txt --format sarif"), 1);
  const auto results = nlohmann::json::parse(out).at("runs").at(0).at("results");
  EXPECT_EQ(results.size(), findings.size());
}

TEST_F(CheckCommandTest, MendsWhatIsCertainAndKeepsTheRest) {
  folder.Write("Pages/First.txt", misspelled);
  EXPECT_EQ(Check("Gui.txt --fix"), 0) << out;
  EXPECT_EQ(err,
            "what was in Pages/First.txt is Pages/bak/First.txt0\n"
            "fixed pages\\first.txt:5:2: error: unknown word \"toltip\", did you mean \"tooltip\"? [unknown-word]\n");
  std::string mended = misspelled;
  mended.replace(mended.find("toltip"), 6, "tooltip");
  EXPECT_EQ(folder.Read("Pages/First.txt"), mended);
  EXPECT_EQ(folder.Read("Pages/bak/First.txt0"), misspelled);
  folder.Write("Pages/First.txt", misspelled);
  PackZip(folder.Path(), folder.Path() / "game.zip");
  std::filesystem::remove_all(folder.Path() / "Pages");
  EXPECT_EQ(Check("Gui.txt --data game.zip --fix"), 2);
  EXPECT_THAT(err, HasSubstr("cannot fix pages\\first.txt: it is in an archive"));
}

TEST_F(CheckCommandTest, IsHeardWhereverTheProgramLoads) {
  folder.Write("Pages/First.txt", misspelled);
  const std::string finding = "pages\\first.txt:5:2: error: unknown word \"toltip\"";
  ASSERT_EQ(Run("Gui.txt --frames 1 --size 16x16"), 0);
  EXPECT_THAT(err, HasSubstr(finding)) << "at the start";
  folder.Write("Checks/check.lua", "gui.settle()");
  EXPECT_EQ(Run("test Checks Gui.txt"), 0) << out;
  EXPECT_THAT(out, Not(HasSubstr(finding)));
  EXPECT_NE(Run("test Checks Gui.txt --strict"), 0);
  EXPECT_THAT(out, AllOf(HasSubstr(finding), HasSubstr("1 passed, 1 failed")));
}

TEST_F(CheckCommandTest, ShowsLongerWordsOfThePseudoLanguage) {
  folder.Write("script.lua",
               "check(#gui.text(1) > 4 and gui.text(1) ~= 'One', gui.text(1))\n"
               "check_equal(gui.language(), 'pseudo')");
  EXPECT_EQ(Run("Gui.txt --language pseudo --offscreen --script script.lua"), 0) << err;
  EXPECT_EQ(Check("Gui.txt --language pseudo"), 0) << out;
}

}  // namespace
}  // namespace qen::host
