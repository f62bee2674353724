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
  for (const StringView name : {u"d:\\menu.txt", u"d:/pages/menu.txt"}) ExpectRefused(String(name), String(name));
  EXPECT_EQ(FilesIn("."), std::vector<std::string>{"c:"}) << "drives are not made";
  fs::current_path(before);
  EXPECT_EQ(FilesIn(folder), std::vector<std::string>{"work"});
}

TEST_F(Saving, RefusesWhatCannotBeAFile) {
  Write("lang/words.txt", "words");
  Write("fixed.txt", "fixed");
  fs::permissions(folder / "fixed.txt", fs::perms::owner_read | fs::perms::others_read);
  fs::create_directories(folder / "taken.txt");
  fs::create_symlink(folder / "nowhere" / "x", folder / "dangling");
  String deep;
  for (int i = 0; i < 50; ++i) deep += String(200, u'y') + u'/';
  const String names[] = {u"",         u"lang\\",         u"lang/",    u"taken.txt", u"lang/words.txt/menu.txt",
                          u"dangling", String(300, u'x'), deep + u'z', u"fixed.txt"};
  for (const String& name : names) ExpectRefused(name, InFolder(name));
  EXPECT_FALSE(gui->SavePage(nullptr, 0));
  EXPECT_EQ(BytesOf(folder / "lang/words.txt") + BytesOf(folder / "fixed.txt"), "wordsfixed");
  EXPECT_EQ(FilesIn(folder / "lang"), (std::vector<std::string>{"bak", "words.txt"}));
  EXPECT_EQ(FilesIn(folder),
            (std::vector<std::string>{"bak", "dangling", "fixed.txt", "lang", "taken.txt", std::string(200, 'y')}));
}

TEST_F(Saving, KeepsPermissionsOwnerAndLinks) {
  Write("real/menu.txt", "mine");
  const fs::path real = folder / "real/menu.txt";
  const fs::perms wanted = fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_write;
  fs::permissions(real, wanted);
  const bool mayGiveAway = ::chown(real.c_str(), 12345, 12346) == 0;
  fs::create_symlink("real/menu.txt", folder / "menu.txt");
  ASSERT_TRUE(gui->SavePage(u"menu.txt", 0));
  EXPECT_TRUE(fs::is_symlink(folder / "menu.txt"));
  EXPECT_TRUE(IsPage("real/menu.txt"));
  EXPECT_EQ(BytesOf(folder / "bak/menu.txt0"), "mine");
  for (const fs::path& file : {real, folder / "bak/menu.txt0"}) {
    struct stat saved {};
    ASSERT_EQ(::stat(file.c_str(), &saved), 0);
    EXPECT_EQ(fs::status(file).permissions(), wanted) << file << ": nobody can read more than before";
    EXPECT_TRUE(!mayGiveAway || (saved.st_uid == 12345 && saved.st_gid == 12346)) << file;
  }
}

}  // namespace
}  // namespace qen::test
