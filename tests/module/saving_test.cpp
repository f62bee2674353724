// Definitions written back, and their backups.
#include <filesystem>
#include <fstream>

#include "engine/system.h"
#include "tests/module/gui_fixture.h"

namespace qen::test {
namespace {

namespace fs = std::filesystem;

class Saving : public GuiTest {
 protected:
  Saving() {
    fs::remove_all(folder);
    fs::create_directories(folder);
    System::SetBasePath(base::ToUtf16(folder.string() + "/"));
  }
  ~Saving() override { fs::remove_all(folder); }

  static std::string Bytes(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }

  // A text as it must stand in a file.
  static std::string Encoded(StringView text) {
    std::string bytes = "\xFF\xFE";
    for (const Char unit : text) bytes += {static_cast<char>(unit & 0xFF), static_cast<char>(unit >> 8)};
    return bytes + std::string(3, '\0');
  }

  const fs::path folder =
      fs::temp_directory_path() / ("gui_saving_" + std::to_string(::testing::UnitTest::GetInstance()->random_seed()) +
                                   ::testing::UnitTest::GetInstance()->current_test_info()->name());
};

TEST_F(Saving, WritesAPageInItsFormat) {
  engine.AddAnimation(u"in.glb", base::MoveNode(u"~bok", {}, {1, 0, 0}, 1.0F));
  base::SceneData scene;
  base::AddNode(scene, u"~tTitle");
  AddButton(scene, u"ok", {});
  engine.AddScene(u"menu.glb", std::move(scene));
  AddText(
      u"menu.txt",
      u"name menu.glb anim in.glb anim_in in.glb onclickwav c.wav item ~bok { tooltip 5 message play:one message two } "
      u"item ~ttitle { textid 7 shadowoff -2.9 color_normal 0 color_shadow ff00AA font \"Two Words\" { italic 255 } }");
  OpenPage(u"menu.txt");
  ASSERT_TRUE(gui->SavePage(u"pages\\saved.txt", 0));
  const String wanted =
      u"name menu.glb\r\nanim_in in.glb\r\nonclickwav c.wav\r\nanim in.glb\r\n\r\n"
      u"item ~ttitle\r\n{\r\n\t tooltip -1\r\n\t id 0\r\n\t visible 1\r\n\t disabled 0\r\n\t min 0\r\n\t max 0\r\n"
      u"\t position 0\r\n\t checked 0\r\n\t textid 7\r\n\t centered 0\r\n\t editabled 0\r\n\t maxchars 16\r\n"
      u"\t color_normal  0\r\n\t color_select  ff\r\n\t color_onmouse  ffff\r\n\t color_disabled  a0a0a0\r\n"
      u"\t color_shadow ff00aa\r\n\t color_shadowsel  0\r\n\t shadowoff -2.0000\r\n\r\n\t font \"Two Words\"\r\n\t "
      u"{\r\n"
      u"\t\t height -21\r\n\t\t width 0\r\n\t\t weight 700\r\n\t\t italic 255\r\n\t }\r\n}\r\n\r\n"
      u"item ~bok\r\n{\r\n\t tooltip 5\r\n\t id 1\r\n\t visible 1\r\n\t disabled 0\r\n\t min 0\r\n\t max 0\r\n"
      u"\t position 0\r\n\t checked 0\r\n\t message play:one\r\n\t message two\r\n}\r\n\r\n";
  EXPECT_EQ(Bytes(folder / "pages" / "saved.txt"), Encoded(wanted));
  EXPECT_EQ(Bytes(folder / "pages" / "saved.txt").size() % 2, 1U);
}

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
  EXPECT_NE(Bytes(backups / "menu.txt1"), Bytes(backups / "menu.txt2"));
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

TEST_F(Saving, WritesTheStyle) {
  AddText(u"style.txt", u"texture a.png color_normal 12abEF font Serif { height -20 }");
  gui->LoadStyle(u"style.txt");
  gui->SaveStyle();
  EXPECT_EQ(Bytes(folder / "style.txt"),
            Encoded(u"texture a.png\r\ncolor_normal  12abef\r\n\nfont \"Serif\"\r\n{\r\n\t height -20\r\n\t width 0\r\n"
                    u"\t weight 700\r\n\t italic 0\r\n}\r\n"));
}

}  // namespace
}  // namespace qen::test
