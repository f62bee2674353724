// Runs the program as people do.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <nlohmann/json.hpp>
#include <span>
#include <sstream>
#include <string>
#include <vector>

#include "base/backends/image.h"
#include "tests/host/guihost_run.h"
#include "tests/host/zip_file.h"

namespace qen::host {
namespace {

namespace fs = std::filesystem;

using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

std::vector<int> Middle(const base::Image& image) {
  const std::size_t pixels = image.rgba.size() / 4;
  const std::size_t middle = pixels / 2 + static_cast<std::size_t>(image.width) / 2;
  const std::span<const std::uint8_t> channels = std::span(image.rgba).subspan(4 * middle, 4);
  return {channels.begin(), channels.end()};
}

TEST_F(GuihostTest, NamesWrongOptions) {
  EXPECT_THAT(Complaint("--bogus"), HasSubstr("--bogus"));
  EXPECT_THAT(Complaint(""), HasSubstr("description"));
  EXPECT_THAT(Complaint("a.txt b.txt"), HasSubstr("b.txt"));
  EXPECT_THAT(Complaint("a.txt --page"), HasSubstr("--page"));
  for (const std::string size : {"10", "0x10", "10x", "x10", "10x-1", "1e1x10", "99999x10", "10x10x10"}) {
    EXPECT_THAT(Complaint("a.txt --size " + size), HasSubstr("--size: " + size));
  }
  EXPECT_THAT(Complaint("a.txt --frames many"), HasSubstr("--frames"));
  for (const std::string save : {"menu", "=menu.txt", "menu="}) {
    EXPECT_THAT(Complaint("a.txt --save-page " + save), HasSubstr("--save-page: " + save));
  }
}

TEST_F(GuihostTest, NamesWhatCannotBeRead) {
  EXPECT_THAT(Complaint("nosuch/gui.txt"), HasSubstr("cannot read nosuch/gui.txt: no such file"));
  EXPECT_THAT(Complaint("Pages"), HasSubstr("cannot read Pages: it is a folder"));
  EXPECT_THAT(Complaint("Gui.txt --data nosuch.zip"), HasSubstr("nosuch.zip"));
  EXPECT_THAT(Complaint("Gui.txt --data Lang.txt"), HasSubstr("Lang.txt"));
  EXPECT_THAT(Complaint("nosuch.txt --data ."), HasSubstr("nosuch.txt"));
  EXPECT_THAT(Complaint("Gui.txt --module nosuch.so"), HasSubstr("nosuch.so"));
  EXPECT_THAT(Complaint("Gui.txt --module Lang.txt"), HasSubstr("Lang.txt"));
}

TEST_F(GuihostTest, NamesWhatIsNotInTheGui) {
  EXPECT_THAT(Complaint("Gui.txt --page third"), AllOf(HasSubstr("third"), HasSubstr("first, second")));
  EXPECT_THAT(Complaint("Gui.txt --save-page third=a.txt"), AllOf(HasSubstr("third"), HasSubstr("first, second")));
  EXPECT_THAT(Complaint("Gui.txt --language klingon"), AllOf(HasSubstr("klingon"), HasSubstr("english, german")));
  EXPECT_THAT(Complaint("Empty.txt"), HasSubstr("names no pages"));
}

TEST_F(GuihostTest, TellsWhatAnArtistHasForgotten) {
  folder.Write("Pages/First.txt",
               "name scenes\\first.glb item ~bSquare { message setpage:third.glb message item } "
               "item ~bCircle { textid 1 } item bGo { textid");
  ASSERT_EQ(Run("Gui.txt --frames 1 --size 16x16"), 0);
  EXPECT_THAT(err, HasSubstr("first.txt: ~bsquare names a page that does not exist: third.glb"));
  EXPECT_THAT(err, HasSubstr("first.txt: no widget ~bCircle in scenes\\first.glb"));
  EXPECT_THAT(err, HasSubstr("first.txt: no widget bGo in scenes\\first.glb"));
  EXPECT_THAT(err, HasSubstr("first.txt: it ends without the value of \"textid\""));
  EXPECT_EQ(std::ranges::count(err, '\n'), 4) << err;
}

TEST_F(GuihostTest, TellsOfAStyleThatIsMissingOrTooShort) {
  folder.Write("Gui.txt", "name pages\\first.txt tool style.txt");
  ASSERT_EQ(Run("Gui.txt --shot a.png --size 16x16"), 0);
  EXPECT_EQ(err, "Can't load file style.txt\n");
  folder.Write("Style.txt", "x");
  ASSERT_EQ(Run("Gui.txt --shot a.png --size 16x16"), 0);
  EXPECT_EQ(err, "style.txt: too short for a style, so there are no tooltips\n");
}

TEST_F(GuihostTest, FailsInTheEndWhenAPageIsMissing) {
  folder.Write("Gui.txt", "lang lang.txt name pages\\first.txt name pages\\third.txt");
  folder.Write("Checks/check.lua", "gui.settle() gui.shot('script.png')");
  const std::string noFile = "guihost: pages\\third.txt cannot be read\n";
  for (const std::string mode : {"--shot shot.png", "--tour tour", "--script Checks/check.lua --offscreen"}) {
    EXPECT_NE(Run("Gui.txt --size 16x16 " + mode), 0) << mode;
    EXPECT_THAT(err, EndsWith(noFile)) << mode;
  }
  for (const char* picture : {"shot.png", "tour/01_first.png", "script.png"}) EXPECT_TRUE(Picture(picture)) << picture;
  EXPECT_NE(Run("test Checks Gui.txt"), 0);
  EXPECT_THAT(out, HasSubstr("third.txt cannot be read"));
  EXPECT_EQ(Run("Gui.txt --frames 1 --size 16x16"), 0) << "people go on without it";
  folder.Write("Pages/Third.txt", "name scenes\\third.glb");
  EXPECT_NE(Run("Gui.txt --size 16x16 --shot shot.png"), 0);
  EXPECT_THAT(err, EndsWith("guihost: pages\\third.txt: its scene scenes\\third.glb cannot be loaded\n"));
}

TEST_F(GuihostTest, NamesWhatCannotBeWritten) {
  EXPECT_THAT(Complaint("Gui.txt --shot Lang.txt/a.png"), HasSubstr("Lang.txt/a.png"));
  EXPECT_THAT(Complaint("Gui.txt --tour Lang.txt"), HasSubstr("Lang.txt"));
  EXPECT_THAT(Complaint("Gui.txt --frames 1 --trace Lang.txt/a.json"), HasSubstr("Lang.txt/a.json"));
}

TEST_F(GuihostTest, TellsItsOptionsAndVersion) {
  EXPECT_EQ(Run("--help"), 0);
  for (const char* option : {"--page", "--size", "--offscreen", "--shot", "--tour", "--trace", "--language", "--data",
                             "--module", "--fps", "--frames", "--version"}) {
    EXPECT_THAT(out, HasSubstr(option));
  }
  EXPECT_EQ(Run("--version"), 0);
  EXPECT_THAT(out, StartsWith("guihost "));
}

TEST_F(GuihostTest, TakesAPictureOfThePageAskedFor) {
  ASSERT_EQ(Run("Gui.txt --shot new/deep/first.png --size 64x48"), 0) << err;
  ASSERT_EQ(Run("Gui.txt --shot second.png --size 64x48 --page SECOND"), 0) << err;
  const auto first = Picture("new/deep/first.png");
  const auto second = Picture("second.png");
  ASSERT_TRUE(first && second);
  ASSERT_EQ(first->width, 64);
  ASSERT_EQ(first->height, 48);
  EXPECT_THAT(Middle(*first), ElementsAre(::testing::Ge(240), ::testing::Le(15), ::testing::Le(15), 255));
  EXPECT_THAT(Middle(*second), ElementsAre(0, 0, 0, 255));
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
  EXPECT_THAT(err, HasSubstr("cannot save Lang.txt/a.txt"));
}

TEST_F(GuihostTest, ReadsItsDataFromAnArchive) {
  PackZip(folder.Path(), folder.Path() / "game.zip");
  for (const char* packed : {"Gui.txt", "Lang.txt", "Pages", "Scenes"}) fs::remove_all(folder.Path() / packed);
  ASSERT_EQ(Run("gui.TXT --data game.zip --shot a.png --size 16x16"), 0) << err;
  EXPECT_THAT(err, IsEmpty());
  EXPECT_TRUE(Picture("a.png").has_value());
}

TEST_F(GuihostTest, LaterDataHidesTheDescriptionsFolder) {
  folder.Write("patch/scenes/FIRST.glb", MakeEmptyScene());
  ASSERT_EQ(Run("Gui.txt --data patch --shot a.png --size 16x16"), 0) << err;
  const auto picture = Picture("a.png");
  ASSERT_TRUE(picture.has_value());
  EXPECT_THAT(Middle(*picture), ElementsAre(0, 0, 0, 255));
}

TEST_F(GuihostTest, PlaysTheTourWithoutADisplay) {
  ASSERT_EQ(Run("Gui.txt --size 32x24"), 0) << err;
  std::istringstream lines(out);
  std::vector<std::string> pictures;
  for (std::string line; std::getline(lines, line);) {
    if (line.ends_with(".png")) pictures.push_back(line);
  }
  ASSERT_THAT(pictures, Not(IsEmpty()));
  EXPECT_EQ(pictures.front(), "shots/01_first.png");
  EXPECT_THAT(pictures, ::testing::Contains(EndsWith("_second.png")));
  for (const std::string& picture : pictures) EXPECT_TRUE(Picture(picture).has_value()) << picture;
}

TEST_F(GuihostTest, TracesTheCallsAsJson) {
  ASSERT_EQ(Run("Gui.txt --frames 2 --trace new/calls.json --size 16x16"), 0) << err;
  std::istringstream lines(folder.Read("new/calls.json"));
  std::vector<std::string> calls;
  for (std::string line; std::getline(lines, line);) {
    const auto call = nlohmann::json::parse(line);
    ASSERT_EQ(call.size(), 2U) << line;
    ASSERT_TRUE(call.at("args").is_array()) << line;
    calls.push_back(call.at("call"));
  }
  EXPECT_THAT(calls, ::testing::IsSupersetOf({"IVFS::ReadFile", "SimpleScene::Load", "ISceneMng::CreateInstance",
                                              "Camera::SetProjection", "IRender::Submit"}));
}

}  // namespace
}  // namespace qen::host
