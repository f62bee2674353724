// Page definitions as the page understands them.
#include "engine/font.h"
#include "tests/module/gui_fixture.h"

namespace qen::test {
namespace {

class PageReading : public GuiTest {
 protected:
  ICGUIObject* OpenWith(StringView definition, const String& name = u"~bok") {
    AddButtonPage(u"menu", {u"ok", u"Quit"}, definition);
    OpenPage(u"menu.txt");
    return Find(name);
  }

  bool LoadsAs(StringView file, StringView text) {
    AddText(file, text);
    const std::uint32_t before = gui->GetPageCount();
    gui->AddPage(String(file).c_str(), &engine.camera);
    return gui->GetPage(before)->LoadPage(String(file).c_str(), 0) != nullptr;
  }
};

TEST_F(PageReading, AppliesItemBlocksToTheWidgetOfThatName) {
  ICGUIObject* quit = OpenWith(
      u"item ~BQUIT { tooltip 7 visible 2 disabled 1 min -3 max 9 position 4 checked 1 id 42\n"
      u"message setpage:a message settext:b;message third }\n"
      u"item ~bnobody { tooltip 9 }\n"
      u"item ~bok { tooltip 8",
      u"~bquit");
  ASSERT_NE(quit, nullptr);
  const ItemInfo& info = *quit->info;
  EXPECT_EQ(info.tooltip, 7);
  EXPECT_EQ(info.visible, 2U);
  EXPECT_EQ(info.disabled, 1U);
  EXPECT_EQ(info.min, -3);
  EXPECT_EQ(info.max, 9);
  EXPECT_EQ(info.position, 4);
  EXPECT_EQ(info.checked, 1U);
  EXPECT_EQ(quit->GetId(), 42);
  ASSERT_EQ(info.messages.size(), 3U);
  EXPECT_EQ(info.messages[0]->text, u"setpage:a");
  EXPECT_EQ(info.messages[2]->text, u"third");
  EXPECT_EQ(info.messages[2]->source, quit);
  EXPECT_EQ(Find(u"~bok")->info->tooltip, 8) << "a block without its end is a block";
}

TEST_F(PageReading, DropsValuesThatHaveNoTarget) {
  ICGUIObject* ok = OpenWith(
      u"item ~bok { textid 5 maxselect 6 scale 2.5 alpha 3 active 1 font Arial { height 4 tooltip 3 }\n"
      u"listitem { name x tooltip 4 message y } b_checked { textid 9 tooltip 5 } tooltip 6 texture tooltip 77 }");
  EXPECT_EQ(ok->info->tooltip, 77) << "the value of a texture is looked at as a keyword";
  EXPECT_TRUE(ok->info->messages.empty());
}

TEST_F(PageReading, BracesAndKeywordsMustStandAlone) {
  EXPECT_EQ(OpenWith(u"item ~bok {tooltip 7 tooltip;8}")->info->tooltip, 8);
}

TEST_F(PageReading, StoresTheEndOfTheTextAndFails) {
  AddButtonPage(u"menu", {u"ok"});
  EXPECT_TRUE(LoadsAs(u"whole", u"name menu.glb item ~bok { tooltip 1 }"));
  EXPECT_FALSE(LoadsAs(u"cut", u"name menu.glb item ~bok { tooltip"));
  EXPECT_EQ(Find(u"~bok", 1)->info->tooltip, -1);
  EXPECT_FALSE(LoadsAs(u"sound", u"name menu.glb onclickwav"));
}

TEST_F(PageReading, RefusesWhatIsNoPage) {
  AddButtonPage(u"menu", {u"ok"});
  struct Row {
    StringView text;
    bool loads;
  };
  const Row rows[] = {{u"", false},
                      {u"n", false},
                      {u"scene menu.glb", false},
                      {u"item ~bok { }", false},
                      {u"name", false},
                      {u"name missing.glb", false},
                      {u"\uFEFFname menu.glb", true},
                      {u"\uFEFF\uFEFFname menu.glb", false},
                      {u"name menu.glb \u00A7 } } { item", true}};
  std::uint32_t page = 0;
  for (const Row& row : rows) {
    EXPECT_EQ(LoadsAs(u"file" + String(1, static_cast<Char>(u'a' + page)), row.text), row.loads) << Narrow(row.text);
    ++page;
  }
  EXPECT_EQ(gui->GetPageCount(), std::size(rows)) << "also pages that do not load are registered";
  EXPECT_FALSE(LoadsAs(u"~never", u"") || gui->GetPage(0)->LoadPage(u"no such file", 0) != nullptr);
}

TEST_F(PageReading, NumbersAnimationsByThoseThatLoad) {
  engine.AddAnimation(u"in.glb", base::MoveNode(u"~bok", {}, {0, 10, 0}, 1.0F));
  engine.AddAnimation(u"out.glb", base::MoveNode(u"~bok", {}, {0, 20, 0}, 1.0F));
  OpenWith(u"anim_in missing.glb anim_out out.glb anim in.glb anim_in in.glb anim_in out.glb");
  ICGUIPageObject* page = gui->GetPage(0);
  EXPECT_EQ(page->animOut, 0);
  EXPECT_EQ(page->animIn, 3);
  ASSERT_EQ(page->anims.size(), 4U);
  EXPECT_EQ(page->anims[1]->name, u"in.glb");
  EXPECT_EQ(page->anims[3]->animationIndex, 3);
}

TEST_F(PageReading, TriesAValueAsALaterKey) {
  engine.AddSound(u"a.wav");
  OpenWith(u"anim_in onclickwav a.wav");
  const std::vector<base::Call> created = engine.CallsOf("ISound::CreateSound");
  ASSERT_EQ(created.size(), 1U);
  EXPECT_EQ(std::get<std::string>(created[0].arguments[0]), "a.wav");
}

TEST_F(PageReading, NamesWithAnyLettersAreFound) {
  AddButtonPage(u"Ménü 雪", {u"ÄÖÜ Ж"}, u"item \"~bäöü ж\" { tooltip 3 }");
  OpenPage(u"MÉNÜ 雪.txt");
  ASSERT_NE(Find(u"~bäöü ж"), nullptr) << Narrow(gui->GetPageName(0));
}

}  // namespace
}  // namespace qen::test
