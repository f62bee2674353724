// The written formats, byte for byte.
#include "engine/font_desc.h"
#include "tests/module/bag_fixture.h"
#include "tests/module/data_folder.h"
#include "tests/module/every_widget.h"

namespace qen::test {
namespace {

class Writers : public SavingTest {
 protected:
  std::string SavedPage(std::uint32_t page = 0) {
    EXPECT_TRUE(gui->SavePage(u"saved.txt", page));
    return BytesOf(folder / "saved.txt");
  }
};

// What sets the text lines below.
constexpr StringView kTextSettings =
    u" centered 1 editabled 2 maxchars 0 color_normal 0 color_select 1A color_onmouse FFFFFFFF color_disabled 10 "
    u"color_shadow ABCDEF color_shadowsel 00123456 shadowoff 2.9 "
    u"font \"Two Words\" { height -40 width 5 weight 400 italic 511 }";

String TextLines(StringView id) {
  return u"\t textid " + String(id) +
         uR"(
	 centered 1
	 editabled 2
	 maxchars 0
	 color_normal  0
	 color_select  1a
	 color_onmouse  ffffffff
	 color_disabled  10
	 color_shadow abcdef
	 color_shadowsel  123456
	 shadowoff 2.0000

	 font "Two Words"
	 {
		 height -40
		 width 5
		 weight 400
		 italic 255
	 }
)";
}

// The beginning of a block that sets nothing but these.
String InfoLines(int id, int min = 0, int max = 0, int position = 0) {
  const std::string lines = "{\n\t tooltip -1\n\t id " + std::to_string(id) + "\n\t visible 1\n\t disabled 0\n\t min " +
                            std::to_string(min) + "\n\t max " + std::to_string(max) + "\n\t position " +
                            std::to_string(position) + "\n\t checked 0\n";
  return {lines.begin(), lines.end()};
}

TEST_F(Writers, WriteEveryKindOfWidget) {
  const String text(kTextSettings);
  OpenScene(SceneOfEveryWidget(),
            u"item ~ttext { tooltip 1 id 70 visible 0 disabled 2 min -3 max 4 position 5 checked 6 message a:b "
            u"message second textid 7" +
                text + u" }\nitem ~bbutton { textid -8" + text + u" }\nitem ~ccheck { checked 0 textid 9" + text +
                u" b_checked { textid 10" + text + u" } b_unchecked { textid 11" + text +
                u" } }\nitem ~llist { maxselect -2 listitem { name \"First entry\" textid 1 commentid 2 tooltip 3 "
                u"message pick:1 message pick:2 } listitem { } textid 12" +
                text + u" }\nitem ~sbar { min 1 max 9 position 4 }\nitem ~ppicture { message go:map }\n" +
                u"item ~tscroll { textid 13" + text + u" }",
            u"scenes\\menu");
  const String wanted =
      uR"(name scenes\menu.glb
item ~bbutton
)" + InfoLines(0) +
      TextLines(u"-8") +
      uR"(}

item ~ccheck
)" + InfoLines(1) +
      TextLines(u"9") +
      uR"(	 b_checked
	 {
)" + TextLines(u"10") +
      uR"(	 }
	 b_unchecked
	 {
)" + TextLines(u"11") +
      uR"(	 }
}

item ~ppicture
)" + InfoLines(2) +
      uR"(	 message go:map
}

item ~sbar
)" + InfoLines(3, 1, 9, 4) +
      uR"(}

item ~llist
)" + InfoLines(4) +
      uR"(	 maxselect -2

	 listitem )" +
      uR"(
	 {
		 name  "First entry"
		 textid 1
		 commentid 2
		 tooltip 3
		 message pick:1
		 message pick:2
	 }

	 listitem )" +
      uR"(
	 {
		 name  "NewItem"
		 textid -1
		 commentid -1
		 tooltip -1
	 }
)" + TextLines(u"12") +
      uR"(}

item ~ttext
{
	 tooltip 1
	 id 70
	 visible 0
	 disabled 2
	 min -3
	 max 4
	 position 5
	 checked 6
	 message a:b
	 message second
)" + TextLines(u"7") +
      uR"(}

item ~tscroll
)" + InfoLines(6, 0, 100) +
      TextLines(u"13") +
      uR"(}

)";
  ExpectText(SavedPage(), WithLineEnds(wanted));
}

TEST_F(Writers, WriteTheHeaderLinesThatThereAre) {
  for (const StringView anim : {u"a.glb", u"b.glb", u"c.glb"}) {
    engine.AddAnimation(anim, base::MoveNode(u"x", {}, {1, 0, 0}, 1.0F));
  }
  struct Row {
    StringView definition;
    StringView wanted;
  };
  const Row rows[] = {
      {u"", u""},
      {u"anim a.glb anim b.glb", u"anim a.glb\n\nanim b.glb\n\n"},
      {u"anim_out b.glb onanimoutwav o.wav onclickwav c.wav anim_in a.glb onmousewav m.wav onaniminwav i.wav anim "
       u"c.glb",
       u"anim_in a.glb\nanim_out b.glb\nonmousewav m.wav\nonclickwav c.wav\nonaniminwav i.wav\nonanimoutwav o.wav\n"
       u"anim c.glb\n\n"},
      {u"anim_in missing.glb anim_out b.glb anim missing.glb", u"anim_out b.glb\n"},
      {u"anim_in a.glb anim_in b.glb", u"anim_in b.glb\nanim a.glb\n\n"},
      {u"onclickwav missing.wav", u"onclickwav missing.wav\n"},
  };
  std::uint32_t page = 0;
  for (const Row& row : rows) {
    OpenScene({}, row.definition, u"scenes\\menu");
    ExpectText(SavedPage(page), WithLineEnds(u"name scenes\\menu.glb\n" + String(row.wanted)));
    ++page;
  }
}

TEST_F(Writers, LeaveOutTheLinesOfPartsThatAreNotThere) {
  base::SceneData scene;
  base::AddNode(scene, u"~cBare");
  const std::int32_t check = base::AddNode(scene, u"~cHalf");
  base::AddNode(scene, u"text", base::AddNode(scene, u"unchecked", check));
  engine.AddScene(u"s.glb", std::move(scene));
  AddText(u"s.txt", u"name s.glb item ~chalf { b_unchecked { textid 4" + String(kTextSettings) + u" } }");
  OpenPage(u"s.txt");
  const StringView info = u"\t visible 1\n\t disabled 0\n\t min 0\n\t max 0\n\t position 0\n\t checked 1\n";
  const String wanted = u"name s.glb\nitem ~cbare\n{\n\t tooltip -1\n\t id 0\n" + String(info) +
                        u"}\n\nitem ~chalf\n{\n\t tooltip -1\n\t id 1\n" + String(info) + u"\t b_unchecked\n\t {\n" +
                        TextLines(u"4") + u"\t }\n}\n\n";
  ExpectText(SavedPage(), WithLineEnds(wanted));
}

TEST_F(Writers, WriteTheBag) {
  engine.AddAnimation(u"in.glb", base::MoveNode(u"x", {}, {1, 0, 0}, 1.0F));
  engine.AddAnimation(u"out.glb", base::MoveNode(u"x", {}, {1, 0, 0}, 1.0F));
  engine.AddAnimation(u"more.glb", base::MoveNode(u"x", {}, {1, 0, 0}, 1.0F));
  AddBag(engine, u"bag", 3,
         u"onclickwav c.wav anim_out out.glb anim more.glb anim_in in.glb\n"
         u"item ~qslot0 { tooltip 5 scale 1.23456 alpha -1 active 2 texture icons\\own.png message dropped }\n"
         u"item ~qslot1 { id 100 scale -0.00001 }\nitem ~qslot2 { id 50 scale 12345678 }");
  gui->AddBagPage(u"bag.txt", &engine.camera);
  const String wanted =
      uR"(name bag.glb
anim_in in.glb
anim_out out.glb
anim more.glb

item ~qslot0
{
	 tooltip 5
	 id 0
	 scale 1.2346
	 alpha -1
	 active 2
	 texture icons\own.png
}

item ~qslot1
{
	 tooltip -1
	 id 100
	 scale -0.0000
	 alpha 255
	 active 0
	 texture textures\guitex\default_bag
}

item ~qslot2
{
	 tooltip -1
	 id 50
	 scale 12345678.0000
	 alpha 255
	 active 0
	 texture textures\guitex\default_bag
}

)";
  ExpectText(SavedPage(), WithLineEnds(wanted));

  Entry entry(1);
  gui->GetPage(0)->SetBagItems({&entry});
  gui->GetPage(0)->Pick(nullptr, 0, 0, 0, 0, 0);
  const std::string sorted = SavedPage();
  EXPECT_LT(sorted.find(Encoded(u"~qslot2").substr(2, 14)), sorted.find(Encoded(u"~qslot1").substr(2, 14)))
      << "in the order that the slots have now";
}

TEST_F(Writers, WriteTheStyle) {
  AddText(u"style.txt", u"texture a.png color_normal 0 font \"Two Words\" { height -20 italic 255 }");
  gui->LoadStyle(u"style.txt");
  gui->GetStyleColor() = 0x80ABCDEF;
  gui->GetStyleFont().lfWidth = 7;
  gui->SaveStyle();
  ExpectText(BytesOf(folder / "style.txt"),
             u"texture a.png\r\ncolor_normal  80abcdef\r\n\nfont \"Two Words\"\r\n{\r\n\t height -20\r\n"
             u"\t width 7\r\n\t weight 700\r\n\t italic 255\r\n}\r\n");
}

TEST_F(Writers, WriteNoStyleWithoutAFileName) {
  gui->SaveStyle();
  gui->LoadStyle(u"x");
  gui->SaveStyle();
  gui->LoadStyle(nullptr);
  gui->SaveStyle();
  EXPECT_TRUE(FilesIn(folder).empty());
  gui->LoadStyle(u"xy");
  gui->SaveStyle();
  EXPECT_FALSE(BytesOf(folder / "xy").empty()) << "two characters are a name";
}

}  // namespace
}  // namespace qen::test
