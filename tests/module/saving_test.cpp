// Where definitions are written to, their backups, and what cannot be saved.
#include "tests/module/saving_fixture.h"

namespace qen::test {
namespace {

namespace fs = std::filesystem;

TEST_F(Saving, NumbersBackupsByTheFirstFreeNumber) {
  const fs::path backups = folder / "bak";
  for (int i = 0; i < 4; ++i) {
    gui->GetPage(0)->items[0]->info->tooltip = i;
    ASSERT_TRUE(gui->SavePage(u"menu.txt", 0));
  }
  EXPECT_TRUE(fs::exists(backups / "menu.txt2"));
  EXPECT_FALSE(fs::exists(backups / "menu.txt3"));
  EXPECT_NE(BytesOf(backups / "menu.txt1"), BytesOf(backups / "menu.txt2"));
  fs::remove(backups / "menu.txt1");
  ASSERT_TRUE(gui->SavePage(u"menu.txt", 0));
  EXPECT_TRUE(fs::exists(backups / "menu.txt1"));
  EXPECT_FALSE(fs::exists(backups / "menu.txt3"));
}

TEST_F(Saving, MakesTheFoldersOnTheWay) {
  ASSERT_TRUE(gui->SavePage(u"data\\pages/Menü 雪.txt", 0));
  EXPECT_TRUE(IsPage(u8"data/pages/Menü 雪.txt"));
  EXPECT_TRUE(FilesIn(folder / "data/pages/bak").empty()) << "there was nothing to keep";
  ASSERT_TRUE(gui->SavePage(u"DATA\\Pages\\MENÜ 雪.TXT", 0)) << "the same names in other letters";
  EXPECT_EQ(FilesIn(folder), std::vector<std::string>{"data"});
  EXPECT_EQ(FilesIn(folder / "data/pages"), (std::vector<std::string>{"Menü 雪.txt", "bak"}));
  EXPECT_EQ(FilesIn(folder / "data/pages/bak"), std::vector<std::string>{"MENÜ 雪.TXT0"});
  EXPECT_TRUE(IsPage(u8"data/pages/bak/MENÜ 雪.TXT0"));
}

TEST_F(Saving, LeavesFilesThatLookLikeItsOwnAlone) {
  Write("menu.txt.part0", "someone's");
  ASSERT_TRUE(gui->SavePage(u"menu.txt", 0));
  EXPECT_TRUE(IsPage("menu.txt"));
  EXPECT_EQ(BytesOf(folder / "menu.txt.part0"), "someone's");
  EXPECT_EQ(FilesIn(folder).size(), 3U);
}

TEST_F(Saving, TellsNobodyThatABagOrStyleWasNotSaved) {
  AddText(u"bag.txt", u"name menu.glb");
  AddText(u"style.txt", u"color_normal 1");
  gui->AddBagPage(u"bag.txt", &engine.camera);
  gui->LoadStyle(u"style.txt");
  fs::create_directories(folder / "style.txt");
  engine.errors.clear();
  EXPECT_FALSE(gui->SavePage(u"style.txt", 1));
  gui->SaveStyle();
  EXPECT_TRUE(engine.errors.empty());
  EXPECT_TRUE(fs::is_directory(folder / "style.txt"));
}

TEST_F(Saving, ReplacesTheLanguageFileByAnother) {
  Write("lang/words.txt", "old words");
  Write("new.txt", "new words");
  AddText(u"gui.txt", u"lang lang\\words.txt");
  AddText(u"lang/words.txt", u"lang english { str1 \"Read\" }");
  const String source = base::ToUtf16((folder / "new.txt").string());
  gui->SaveLanguage(source);
  EXPECT_EQ(FilesIn(folder), (std::vector<std::string>{"bak", "lang", "new.txt"})) << "no language file, no copy";
  gui->Load(u"gui.txt", nullptr);
  gui->SaveLanguage(u"no such file");
  EXPECT_EQ(BytesOf(folder / "lang/words.txt"), "old words");
  gui->SaveLanguage(source);
  EXPECT_EQ(BytesOf(folder / "lang/words.txt"), "new words");
  EXPECT_EQ(BytesOf(folder / "lang/bak/words.txt1"), "old words");
  EXPECT_EQ(gui->GetText(1), u"Read") << "the words in use stay";
}

}  // namespace
}  // namespace qen::test
