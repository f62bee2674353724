// Saving where there are no drives, but permissions, owners and links.
#include <sys/stat.h>
#include <unistd.h>

#include "tests/module/saving_fixture.h"

namespace qen::test {
namespace {

namespace fs = std::filesystem;

TEST_F(Saving, TakesANameWithADriveAsItIs) {
  const fs::path before = fs::current_path();
  fs::create_directories(folder / "work" / "c:");
  fs::current_path(folder / "work");
  EXPECT_TRUE(gui->SavePage(u"c:\\pages\\menu.txt", 0));
  EXPECT_TRUE(IsPage("work/c:/pages/menu.txt"));
  EXPECT_TRUE(fs::exists("c:/pages/bak"));
  ExpectRefused(u"d:\\menu.txt", u"d:\\menu.txt");
  ExpectRefused(u"d:/pages/menu.txt", u"d:/pages/menu.txt");
  EXPECT_EQ(FilesIn("."), std::vector<std::string>{"c:"}) << "drives are not made";
  fs::current_path(before);
  EXPECT_EQ(FilesIn(folder), std::vector<std::string>{"work"});
}

TEST_F(Saving, RefusesWhatIsNoFileName) {
  Write("lang/words.txt", "words");
  fs::create_directories(folder / "taken.txt");
  fs::create_symlink(folder / "nowhere" / "x", folder / "dangling");
  ExpectRefused(u"", System::GetBasePath());
  ExpectRefused(u"pages\\", InFolder(u"pages\\"));
  ExpectRefused(u"lang/", InFolder(u"lang/"));
  ExpectRefused(u"taken.txt", InFolder(u"taken.txt"));
  ExpectRefused(u"lang/words.txt/menu.txt", InFolder(u"lang/words.txt/menu.txt"));
  ExpectRefused(u"dangling", InFolder(u"dangling"));
  const String endless(300, u'x');
  ExpectRefused(endless, InFolder(endless));
  String deep;
  for (int i = 0; i < 50; ++i) deep += String(200, u'y') + u'/';
  ExpectRefused(deep + u"menu.txt", InFolder(deep + u"menu.txt"));
  EXPECT_FALSE(gui->SavePage(nullptr, 0));
  EXPECT_EQ(BytesOf(folder / "lang/words.txt"), "words");
  EXPECT_TRUE(fs::is_directory(folder / "taken.txt"));
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    EXPECT_EQ(entry.path().string().find(".part"), std::string::npos) << entry.path();
  }
}

TEST_F(Saving, LeavesAReadOnlyFileAlone) {
  Write("menu.txt", "mine");
  fs::permissions(folder / "menu.txt", fs::perms::owner_read | fs::perms::others_read);
  ExpectRefused(u"menu.txt", InFolder(u"menu.txt"));
  EXPECT_EQ(BytesOf(folder / "menu.txt"), "mine");
  EXPECT_EQ(FilesIn(folder), (std::vector<std::string>{"bak", "menu.txt"}));
}

TEST_F(Saving, KeepsPermissionsOwnerAndLinks) {
  Write("real/menu.txt", "mine");
  const fs::perms wanted = fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_write;
  fs::permissions(folder / "real/menu.txt", wanted);
  constexpr uid_t kSomeone = 12345;
  const bool mayGiveAway = ::chown((folder / "real/menu.txt").c_str(), kSomeone, kSomeone) == 0;
  fs::create_symlink("real/menu.txt", folder / "menu.txt");
  ASSERT_TRUE(gui->SavePage(u"menu.txt", 0));
  EXPECT_TRUE(fs::is_symlink(folder / "menu.txt"));
  EXPECT_TRUE(IsPage("real/menu.txt"));
  EXPECT_EQ(fs::status(folder / "real/menu.txt").permissions(), wanted);
  EXPECT_EQ(BytesOf(folder / "bak/menu.txt0"), "mine");
  EXPECT_EQ(fs::status(folder / "bak/menu.txt0").permissions(), wanted) << "nobody can read more than before";
  struct stat saved {};
  ASSERT_EQ(::stat((folder / "real/menu.txt").c_str(), &saved), 0);
  EXPECT_TRUE(!mayGiveAway || saved.st_uid == kSomeone);
}

}  // namespace
}  // namespace qen::test
