// Where definitions are written to, and their backups.
#include "tests/module/saving_fixture.h"

namespace qen::test {
namespace {

TEST_F(Saving, NumbersBackupsByTheFirstFreeNumber) {
  Write("menu.txt.part0", "someone's");
  Write("menu.txt", "first");
  Write("bak/menu.txt1", "kept");
  for (int i = 0; i < 2; ++i) ASSERT_TRUE(gui->SavePage(u"menu.txt", 0));
  EXPECT_EQ(FilesIn(folder / "bak"), (std::vector<std::string>{"menu.txt0", "menu.txt1", "menu.txt2"}));
  EXPECT_EQ(BytesOf(folder / "bak/menu.txt0"), "first");
  EXPECT_EQ(BytesOf(folder / "bak/menu.txt1"), "kept");
  EXPECT_TRUE(IsPage("bak/menu.txt2"));
  EXPECT_EQ(FilesIn(folder), (std::vector<std::string>{"bak", "menu.txt", "menu.txt.part0"}));
  EXPECT_EQ(BytesOf(folder / "menu.txt.part0"), "someone's");
}

TEST_F(Saving, MakesTheFoldersOnTheWay) {
  ASSERT_TRUE(gui->SavePage(u"data\\pages/Menü 雪.txt", 0));
  EXPECT_TRUE(IsPage(u8"data/pages/Menü 雪.txt"));
  EXPECT_TRUE(FilesIn(folder / "data/pages/bak").empty()) << "there was nothing to keep";
  ASSERT_TRUE(gui->SavePage(u"DATA\\Pages\\MENÜ 雪.TXT", 0)) << "the same names in other letters";
  EXPECT_EQ(FilesIn(folder), std::vector<std::string>{"data"});
  EXPECT_EQ(FilesIn(folder / "data/pages"), (std::vector<std::string>{"Menü 雪.txt", "bak"}));
  EXPECT_TRUE(IsPage(u8"data/pages/bak/MENÜ 雪.TXT0"));
}

TEST_F(Saving, ReplacesTheLanguageFileByAnother) {
  Write("lang/words.txt", "old");
  Write("new.txt", "new");
  AddText(u"gui.txt", u"lang lang\\words.txt");
  AddText(u"lang/words.txt", u"lang english { str1 \"Read\" }");
  gui->SaveLanguage(InFolder(u"new.txt"));
  EXPECT_EQ(FilesIn(folder), (std::vector<std::string>{"bak", "lang", "new.txt"})) << "no language file, no copy";
  gui->Load(u"gui.txt", nullptr);
  gui->SaveLanguage(u"no such file");
  EXPECT_EQ(BytesOf(folder / "lang/words.txt"), "old");
  gui->SaveLanguage(InFolder(u"new.txt"));
  EXPECT_EQ(BytesOf(folder / "lang/words.txt") + BytesOf(folder / "lang/bak/words.txt1"), "newold");
  EXPECT_EQ(gui->GetText(1), u"Read") << "the words in use stay";
}

}  // namespace
}  // namespace qen::test
