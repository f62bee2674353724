#include "host/files/physfs_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <thread>

#include "tests/host/zip_file.h"
#include "tests/temporary_folder.h"

namespace qen::host {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;

class PhysfsFilesTest : public ::testing::Test {
 protected:
  // The content of a file; "-" when there is none.
  std::string Read(StringView name) {
    std::vector<std::uint8_t> bytes;
    return files.Read(name, bytes) ? std::string(bytes.begin(), bytes.end()) : "-";
  }

  TemporaryFolder folder;
  PhysfsFiles files;
};

TEST_F(PhysfsFilesTest, FindsNamesWithoutRegardToLetterCaseAndSeparators) {
  folder.Write("Scenes/Main Menu/Button.GLB", "button");
  folder.Write("Ünï/ПЛАН/灯.txt", "lamp");
  folder.Write("a.txt", "small");
  folder.Write("A.txt", "large");
  folder.Write("textures/a.png", "a");
  folder.Write("Textures/B.png", "b");
  files.Mount(folder.Path());
  for (const StringView name :
       {u"Scenes/Main Menu/Button.GLB", u"scenes\\main menu\\button.glb", u"SCENES//.\\MAIN MENU/BUTTON.glb",
        u"/scenes/main menu/button.glb", u"scenes\\other\\..\\main menu\\button.glb"}) {
    EXPECT_EQ(Read(name), "button");
  }
  EXPECT_EQ(Read(u"ünÏ\\план\\灯.TXT"), "lamp");
  EXPECT_EQ(Read(u"a.txt") + Read(u"A.txt"), "smalllarge") << "the exact spelling first";
  EXPECT_EQ(Read(u"TEXTURES/a.PNG") + Read(u"textures/b.png"), "ab") << "in folders that differ in letter case only";
}

TEST_F(PhysfsFilesTest, LaterPlacesHideEarlierOnes) {
  folder.Write("base/gui.txt", "base");
  folder.Write("base/only.txt", "only");
  folder.Write("patch/Pages/Menü.txt", "menu");
  folder.Write("patch/GUI.TXT", "patch");
  PackZip(folder.Path() / "patch", folder.Path() / "patch.zip");
  files.Mount(folder.Path() / "base");
  files.Mount(folder.Path() / "patch.zip");
  EXPECT_EQ(Read(u"gui.txt"), "patch");
  EXPECT_EQ(Read(u"only.txt"), "only");
  EXPECT_EQ(Read(u"pages\\MENÜ.TXT"), "menu");
}

TEST_F(PhysfsFilesTest, NeverLeavesTheData) {
  folder.Write("secret.txt", "secret");
  folder.Write("data/gui.txt", "gui");
  files.Mount(folder.Path() / "data");
  const std::u16string absolute = (folder.Path() / "secret.txt").u16string();
  EXPECT_EQ(Read(u"../secret.txt"), "-");
  EXPECT_EQ(Read(u"../gui.txt"), "-");
  EXPECT_EQ(Read(u"pages\\..\\..\\secret.txt"), "-");
  EXPECT_EQ(Read(absolute), "-");
  EXPECT_EQ(Read(u"c:\\gui.txt"), "-");
  EXPECT_EQ(Read(u"C:gui.txt"), "-");
  EXPECT_EQ(Read(u"http://host/gui.txt"), "-");
  EXPECT_EQ(Read(StringView(u"gui.txt\0.png", 12)), "-");
}

TEST_F(PhysfsFilesTest, ReadsFilesOnly) {
  folder.Write("pages/a.txt", "");
  std::filesystem::create_symlink("/dev/null", folder.Path() / "pages/device");
  files.Mount(folder.Path());
  EXPECT_EQ(Read(u"pages"), "-");
  EXPECT_EQ(Read(u"pages/device"), "-");
  EXPECT_EQ(Read(u"PAGES"), "-");
  EXPECT_EQ(Read(u""), "-");
  EXPECT_EQ(Read(u"pages/a.txt"), "");
  EXPECT_EQ(Read(u"pages/a.txt/b"), "-");
  std::vector<std::uint8_t> bytes{1, 2, 3};
  EXPECT_FALSE(files.Read(u"missing.txt", bytes));
  EXPECT_THAT(bytes, ::testing::ElementsAre(1, 2, 3)) << "left alone";
}

TEST_F(PhysfsFilesTest, SeesWhatChangesLater) {
  folder.Write("gui.txt", "old");
  files.Mount(folder.Path());
  EXPECT_EQ(Read(u"GUI.txt"), "old");
  folder.Write("gui.txt", "new");
  EXPECT_EQ(Read(u"GUI.txt"), "new");
  fs::rename(folder.Path() / "gui.txt", folder.Path() / "Gui.txt");
  EXPECT_EQ(Read(u"GUI.txt"), "new");
  fs::remove(folder.Path() / "Gui.txt");
  EXPECT_EQ(Read(u"GUI.txt"), "-");
  folder.Write("page.txt", "page");
  EXPECT_EQ(Read(u"page.txt"), "page");
}

TEST_F(PhysfsFilesTest, FindsFilesThatAppearInAnotherLetterCaseAfterAWhile) {
  files.Mount(folder.Path());
  EXPECT_EQ(Read(u"scenes/menu.glb"), "-");
  folder.Write("Scenes/Menu.glb", "menu");
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(10);
  while (Read(u"scenes/menu.glb") == "-" && std::chrono::steady_clock::now() < end) {
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
  }
  EXPECT_EQ(Read(u"scenes/menu.glb"), "menu");
}

TEST_F(PhysfsFilesTest, SaysWhatCannotBeMounted) {
  folder.Write("data.txt", "no archive");
  const auto why = [this](const fs::path& place) -> std::string {
    try {
      files.Mount(place);
    } catch (const std::runtime_error& problem) {
      return problem.what();
    }
    return "";
  };
  EXPECT_THAT(why(folder.Path() / "missing"), HasSubstr("missing"));
  EXPECT_THAT(why(folder.Path() / "data.txt"), HasSubstr("data.txt"));
}

}  // namespace
}  // namespace qen::host
