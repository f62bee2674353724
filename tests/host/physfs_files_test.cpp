#include "host/files/physfs_files.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <thread>

#include "base/utf.h"
#include "tests/host/zip_file.h"
#include "tests/temporary_folder.h"

namespace qen::host {
namespace {

namespace fs = std::filesystem;

class PhysfsFilesTest : public ::testing::Test {
 protected:
  // The content of a file; "-" when there is none.
  std::string Read(StringView name) {
    std::vector<std::uint8_t> bytes{'-'};
    EXPECT_TRUE(files.Read(name, bytes) || bytes.size() == 1) << "left alone";
    return {bytes.begin(), bytes.end()};
  }

  TemporaryFolder folder;
  PhysfsFiles files;
};

TEST_F(PhysfsFilesTest, FindsNamesInAnyLetterCaseAndNeverLeavesTheData) {
  for (const char* name :
       {"data/Scenes/Main Menu/Button.GLB", "data/Ünï/ПЛАН/灯.txt", "data/a.txt", "data/A.txt", "data/textures/a.png",
        "data/Textures/B.png", "data/gui.txt", "patch/GUI.TXT", "patch/Pages/Menü.txt", "secret.txt"}) {
    folder.Write(name, name);
  }
  folder.Write("data/pages/empty.txt", "");
  fs::create_symlink("/dev/null", folder.Path() / "data/pages/device");
  PackZip(folder.Path() / "patch", folder.Path() / "patch.zip");
  files.Mount(folder.Path() / "data");
  files.Mount(folder.Path() / "patch.zip");
  for (const StringView name :
       {u"Scenes/Main Menu/Button.GLB", u"scenes\\main menu\\button.glb", u"SCENES//.\\MAIN MENU/BUTTON.glb",
        u"/scenes/main menu/button.glb", u"scenes\\other\\..\\main menu\\button.glb"}) {
    EXPECT_EQ(Read(name), "data/Scenes/Main Menu/Button.GLB");
  }
  EXPECT_EQ(Read(u"ünÏ\\план\\灯.TXT"), "data/Ünï/ПЛАН/灯.txt");
  EXPECT_EQ(Read(u"a.txt") + Read(u"A.txt"), "data/a.txtdata/A.txt") << "the exact spelling first";
  EXPECT_EQ(Read(u"TEXTURES/a.PNG"), "data/textures/a.png") << "in folders that differ in letter case only";
  EXPECT_EQ(Read(u"textures/b.png"), "data/Textures/B.png");
  EXPECT_EQ(Read(u"gui.txt"), "patch/GUI.TXT") << "later places hide earlier ones";
  EXPECT_EQ(Read(u"pages\\MENÜ.TXT"), "patch/Pages/Menü.txt");
  EXPECT_EQ(Read(u"pages/empty.txt"), "");
  const std::u16string absolute = (folder.Path() / "secret.txt").u16string();
  for (const StringView name :
       {StringView(u"pages"), StringView(u"PAGES"), StringView(u"pages/device"), StringView(u"pages/empty.txt/b"),
        StringView(u""), StringView(u"missing.txt"), StringView(u"../secret.txt"), StringView(u"../gui.txt"),
        StringView(u"pages\\..\\..\\secret.txt"), StringView(absolute), StringView(u"c:\\gui.txt"),
        StringView(u"C:gui.txt"), StringView(u"gui.txt\0.png", 12)}) {
    EXPECT_EQ(Read(name), "-") << base::ToUtf8(name);
  }
}

TEST_F(PhysfsFilesTest, SeesWhatChangesLater) {
  folder.Write("gui.txt", "old");
  files.Mount(folder.Path());
  EXPECT_EQ(Read(u"GUI.txt"), "old");
  folder.Write("gui.txt", "new");
  EXPECT_EQ(Read(u"GUI.txt"), "new");
  fs::remove(folder.Path() / "gui.txt");
  EXPECT_EQ(Read(u"GUI.txt") + Read(u"scenes/menu.glb"), "--");
  folder.Write("Scenes/Menu.glb", "menu");
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(10);
  while (Read(u"scenes/menu.glb") == "-" && std::chrono::steady_clock::now() < end) {
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
  }
  EXPECT_EQ(Read(u"scenes/menu.glb"), "menu") << "after a while";
}

}  // namespace
}  // namespace qen::host
