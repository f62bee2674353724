// Definitions written back, and their backups.
#include "tests/module/data_folder.h"

namespace qen::test {
namespace {

namespace fs = std::filesystem;

class Saving : public SavingTest {};

TEST_F(Saving, NumbersBackupsByTheFirstFreeNumber) {
  AddButtonPage(u"menu", {u"ok"});
  OpenPage(u"menu.txt");
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

TEST_F(Saving, SaysWhatCannotBeSavedAndKeepsIt) {
  AddButtonPage(u"menu", {u"ok"});
  OpenPage(u"menu.txt");
  fs::create_directories(folder / "taken.txt");
  EXPECT_FALSE(gui->SavePage(u"taken.txt", 0));
  ASSERT_EQ(engine.errors.size(), 1U);
  EXPECT_TRUE(engine.errors[0].starts_with(u"Can't save file "));
  EXPECT_TRUE(fs::is_directory(folder / "taken.txt"));
  EXPECT_FALSE(gui->SavePage(nullptr, 0));
}

}  // namespace
}  // namespace qen::test
