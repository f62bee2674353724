// Runs the program as people do.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <string>

#include "base/backends/image.h"
#include "tests/host/guihost_run.h"
#include "tests/host/zip_file.h"

namespace qen::host {
namespace {

namespace fs = std::filesystem;

using ::testing::AllOf;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::StartsWith;

// The colour in the middle of a picture; "none" when it is no picture.
std::string Middle(const std::optional<base::Image>& image) {
  if (!image) return "none";
  const std::size_t middle = image->rgba.size() / 8 + static_cast<std::size_t>(image->width) / 2;
  const std::uint8_t* pixel = image->rgba.data() + 4 * middle;
  return pixel[0] > 240 && pixel[1] < 15 && pixel[2] < 15 ? "red" : pixel[0] + pixel[1] + pixel[2] == 0 ? "black" : "?";
}

TEST_F(GuihostTest, SaysInOneLineWhatIsWrong) {
  const char* rows[][2] = {{"--bogus", "--bogus"},
                           {"", "no GUI description given"},
                           {"a.txt --size 10", "--size: 10 is no size such as 1280x960"},
                           {"a.txt --size 0x10", "--size: 0x10"},
                           {"a.txt --size 10x-1", "--size: 10x-1"},
                           {"a.txt --size 99999x10", "--size: 99999x10"},
                           {"a.txt --save-page menu", "--save-page: menu is no NAME=FILE"},
                           {"nosuch/gui.txt", "cannot read nosuch/gui.txt: no such file"},
                           {"Pages", "cannot read Pages: it is a folder"},
                           {"Gui.txt --data nosuch.zip", "cannot read nosuch.zip"},
                           {"Gui.txt --module Lang.txt", "Lang.txt"},
                           {"Gui.txt --page third", "first, second"},
                           {"Gui.txt --language klingon", "english, german"},
                           {"Empty.txt", "names no pages"},
                           {"Gui.txt --shot Lang.txt/a.png", "Lang.txt/a.png"},
                           {"Gui.txt --tour Lang.txt", "Lang.txt"},
                           {"Gui.txt --frames 1 --trace Lang.txt/a.json", "Lang.txt/a.json"},
                           {"test nosuch Gui.txt", "cannot read nosuch"},
                           {"test Pages Gui.txt", "Pages has no scripts"},
                           {"test Pages Gui.txt --timeout 0", "--timeout"}};
  for (const auto& [arguments, complaint] : rows) {
    EXPECT_NE(Run(arguments), 0) << arguments;
    EXPECT_EQ(std::ranges::count(err, '\n'), 1) << err;
    EXPECT_THAT(err, AllOf(StartsWith("guihost: "), HasSubstr(complaint))) << arguments;
  }
}

TEST_F(GuihostTest, TracesWhatIsAskedOfTheEngine) {
  ASSERT_EQ(Run("Gui.txt --frames 2 --trace new/calls.json --size 16x16"), 0);
  EXPECT_THAT(folder.Read("new/calls.json"), HasSubstr("{\"call\":\"IRender::Submit\",\"args\":[")) << "it was drawn";
}

TEST_F(GuihostTest, ShowsWhereTheTimeOfAFrameGoes) {
  ASSERT_EQ(Run("Gui.txt --fps --frames 60 --trace calls.json --size 1280x64"), 0) << err;
  const std::string calls = folder.Read("calls.json");
  const std::size_t end = calls.rfind(" ms a frame");
  ASSERT_NE(end, std::string::npos);
  const std::size_t begin = calls.rfind('"', end) + 1;
  double frame = 0, worst = 0, update = 0, draw = 0, openGl = 0, display = 0;
  unsigned drawCalls = 0;
  std::sscanf(calls.c_str() + begin,
              "%lf ms a frame (at worst %lf): update %lf, draw %lf, OpenGL %lf, display %lf; %u draw calls", &frame,
              &worst, &update, &draw, &openGl, &display, &drawCalls);
  EXPECT_GE(drawCalls, 1U);
  EXPECT_NEAR(update + draw + openGl + display, frame, 0.3);
  EXPECT_GE(worst, frame);
}

TEST_F(GuihostTest, FailsInTheEndWhenAPageIsMissing) {
  folder.Write("Gui.txt", "lang lang.txt name pages\\first.txt name pages\\third.txt");
  folder.Write("Checks/check.lua", "gui.settle() gui.shot('script.png')");
  for (const std::string mode : {"--shot shot.png", "", "--script Checks/check.lua --offscreen"}) {
    EXPECT_NE(Run("Gui.txt --size 16x16 " + mode), 0) << mode;
    EXPECT_THAT(err, EndsWith("guihost: Gui.txt:1:41: error: pages\\third.txt cannot be read [missing-file]\n"))
        << mode;
  }
  for (const char* picture : {"shot.png", "shots/01_first.png", "script.png"}) EXPECT_TRUE(Picture(picture)) << picture;
  EXPECT_NE(Run("test Checks Gui.txt"), 0);
  EXPECT_THAT(out, HasSubstr("third.txt cannot be read"));
  EXPECT_EQ(Run("Gui.txt --frames 1 --size 16x16"), 0) << "people go on without it";
  folder.Write("Pages/Third.txt", "name scenes\\third.glb");
  EXPECT_NE(Run("Gui.txt --size 16x16 --shot shot.png"), 0);
  EXPECT_THAT(err, EndsWith("guihost: pages\\third.txt:1:6: error: scenes\\third.glb cannot be read [missing-file]\n"));
}

TEST_F(GuihostTest, TellsItsOptionsAndVersion) {
  EXPECT_EQ(Run("--help"), 0);
  EXPECT_THAT(out, AllOf(HasSubstr("--page"), HasSubstr("--save-page"), HasSubstr("In the window, F1 shows the keys")));
  EXPECT_EQ(Run("--version"), 0);
  EXPECT_THAT(out, StartsWith("guihost "));
}

TEST_F(GuihostTest, TakesPicturesOfPagesFromFoldersAndArchives) {
  ASSERT_EQ(Run("Gui.txt --shot new/deep/first.png --size 64x48"), 0) << err;
  const auto first = Picture("new/deep/first.png");
  EXPECT_EQ(Middle(first), "red");
  EXPECT_TRUE(first && first->width == 64 && first->height == 48);
  ASSERT_EQ(Run("Gui.txt --shot second.png --size 64x48 --page SECOND"), 0) << err;
  EXPECT_EQ(Middle(Picture("second.png")), "black");
  PackZip(folder.Path(), folder.Path() / "game.zip");
  for (const char* packed : {"Gui.txt", "Lang.txt", "Pages", "Scenes"}) fs::remove_all(folder.Path() / packed);
  ASSERT_EQ(Run("gui.TXT --data game.zip --shot zip.png --size 16x16"), 0) << err;
  EXPECT_EQ(err, "");
  EXPECT_EQ(Middle(Picture("zip.png")), "red");
  folder.Write("patch/scenes/FIRST.glb", MakeEmptyScene());
  ASSERT_EQ(Run("Gui.txt --data game.zip --data patch --shot patch.png --size 16x16"), 0) << err;
  EXPECT_EQ(Middle(Picture("patch.png")), "black") << "later data hides earlier data";
}

TEST_F(GuihostTest, SavesPagesAndTellsWhere) {
  ASSERT_EQ(Run("Gui.txt --save-page first=new/a.txt --save-page Second=Pages/Second.txt --shot a.png --size 16x16"), 0)
      << err;
  EXPECT_THAT(out, EndsWith("saved new/a.txt\nsaved Pages/Second.txt; what was there is Pages/bak/Second.txt0\n"));
  EXPECT_EQ(folder.Read("Pages/bak/Second.txt0"), "name scenes\\second.glb\n");
  EXPECT_THAT(folder.Read("new/a.txt"), StartsWith("\xFF\xFEn"));
  EXPECT_TRUE(Picture("a.png"));
  ASSERT_EQ(Run("Gui.txt --save-page second=b.txt"), 0) << err;
  EXPECT_EQ(folder.Read("b.txt"), folder.Read("Pages/Second.txt")) << "what was saved is what was loaded";
  EXPECT_NE(Run("Gui.txt --save-page first=Lang.txt/a.txt"), 0);
  EXPECT_THAT(err, EndsWith("guihost: cannot save Lang.txt/a.txt\n"));
}

}  // namespace
}  // namespace qen::host
