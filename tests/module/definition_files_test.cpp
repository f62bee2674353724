// What definition files say, as the module reads them and writes them again, byte for byte.
#include <set>

#include "engine/string_converter.h"
#include "tests/module/bag_fixture.h"
#include "tests/module/data_folder.h"
#include "tests/module/every_widget.h"

namespace qen::test {
namespace {

// The parts of a saved page.

String Block(StringView name, const String& lines) { return u"item " + String(name) + u"\n{\n" + lines + u"}\n\n"; }

String Info(StringView id, StringView min = u"0", StringView max = u"0") {
  return u"\t tooltip -1\n\t id " + String(id) + u"\n\t visible 1\n\t disabled 0\n\t min " + String(min) +
         u"\n\t max " + String(max) + u"\n\t position 0\n\t checked 1\n";
}

String TextLines(StringView id) {
  return u"\t textid " + String(id) +
         u"\n\t centered 1\n\t editabled 2\n\t maxchars 3\n\t color_normal  0\n\t color_select  1a\n"
         u"\t color_onmouse  ffffffff\n\t color_disabled  10\n\t color_shadow abcdef\n\t color_shadowsel  123456\n"
         u"\t shadowoff -2.0000\n\n\t font \"Two Wörds\"\n\t {\n\t\t height -40\n\t\t width 5\n\t\t weight 400\n"
         u"\t\t italic 255\n\t }\n";
}

String Half(StringView side, StringView textId) {
  return u"\t " + String(side) + u"\n\t {\n" + TextLines(textId) + u"\t }\n";
}

class DefinitionFiles : public SavingTest {
 protected:
  DefinitionFiles() {
    base::SceneData scene = SceneOfEveryWidget();
    base::AddNode(scene, u"text", base::AddNode(scene, u"unchecked", base::AddNode(scene, u"~cHälf")));
    engine.AddScene(u"s\\menu.glb", std::move(scene));
    AddBag(engine, u"bag", 3, {});
    for (const StringView anim : {u"a.glb", u"b.glb", u"c.glb"}) {
      engine.AddAnimation(anim, base::MoveNode(u"x", {}, {1, 0, 0}, 1.0F));
    }
  }

  // Loads the text into the only page. An added file would be updated, which brings positions into their ranges.
  bool Load(const String& text, bool isBag = false) {
    AddText(u"read.txt", text);
    gui->Release();
    isBag ? gui->AddBagPage(u"", &engine.camera) : gui->AddPage(u"", &engine.camera);
    return gui->GetPage(0)->LoadPage(u"read.txt", 0) != nullptr;
  }

  std::string Saved() {
    EXPECT_TRUE(gui->SavePage(u"saved.txt", 0));
    return BytesOf(folder / "saved.txt");
  }
};

TEST_F(DefinitionFiles, OfAPageAreWrittenAsTheyWereRead) {
  const StringView entries =
      u"\t maxselect -2\n\n\t listitem \n\t {\n\t\t name  \"First ; entry\"\n\t\t textid 1\n\t\t commentid 2\n"
      u"\t\t tooltip 3\n\t\t message pick:1\n\t\t message pick:2\n\t }\n\n\t listitem \n\t {\n\t\t name  \"NewItem\"\n"
      u"\t\t textid -1\n\t\t commentid -1\n\t\t tooltip -1\n\t }\n";
  const String text =
      u"name s\\menu.glb\nanim_in a.glb\nanim_out b.glb\nonmousewav m.wav\nonclickwav c.wav\nonaniminwav i.wav\n"
      u"onanimoutwav o.wav\nanim c.glb\n\n" +
      Block(u"~bbutton", Info(u"0") + TextLines(u"-8")) +
      Block(u"~ccheck", Info(u"1") + TextLines(u"9") + Half(u"b_checked", u"10") + Half(u"b_unchecked", u"11")) +
      Block(u"~ppicture", Info(u"2") + u"\t message go:m~{}a'#:Жp\n") +
      Block(u"~sbar", Info(u"3", u"-2147483648", u"2147483647")) +
      Block(u"~llist", Info(u"-4") + String(entries) + TextLines(u"12")) +
      Block(u"~ttext",
            u"\t tooltip 1\n\t id 70\n\t visible 0\n\t disabled 2\n\t min -3\n\t max 4\n\t position 5\n"
            u"\t checked 6\n\t message a:b\n\t message second\n" +
                TextLines(u"7")) +
      Block(u"~tscroll", Info(u"6", u"0", u"100") + TextLines(u"13")) +
      Block(u"~chälf", Info(u"7") + Half(u"b_unchecked", u"14"));
  EXPECT_TRUE(Load(text));
  ExpectText(Saved(), WithLineEnds(text));
  EXPECT_EQ(Find(u"~ppicture")->info->messages.at(0)->source, Find(u"~ppicture"));
  auto* list = dynamic_cast<ICGUIList*>(Find(u"~llist"));
  EXPECT_EQ(list->GetItem(0)->info->messages.at(1)->source, list);
}

TEST_F(DefinitionFiles, OfABagAreWrittenAsTheyWereRead) {
  const auto slot = [](StringView name, StringView id, StringView scale) {
    return Block(name, u"\t tooltip -1\n\t id " + String(id) + u"\n\t scale " + String(scale) +
                           u"\n\t alpha 255\n\t active 0\n\t texture textures\\guitex\\default_bag\n");
  };
  const String later[] = {slot(u"~qslot1", u"100", u"-0.0000"), slot(u"~qslot2", u"50", u"12345678.0000")};
  const String text = u"name bag.glb\nanim_in a.glb\nanim_out b.glb\nanim c.glb\n\n" +
                      Block(u"~qslot0",
                            u"\t tooltip 5\n\t id 0\n\t scale 1.2346\n\t alpha -1\n\t active 2\n"
                            u"\t texture icons\\own.png\n") +
                      later[0] + later[1];
  String read = u"\uFEFF" + text;
  read.replace(read.find(u"1.2346"), 6, u"1.23456 message dropped");
  read.replace(read.find(u"anim c"), 4, u"onclickwav c.wav anim missing.glb anim");
  EXPECT_TRUE(Load(read, true));
  ExpectText(Saved(), WithLineEnds(text));
  Entry entry(1);
  gui->GetPage(0)->SetBagItems({&entry});
  gui->GetPage(0)->Pick(nullptr, 0, 0, 0, 0, 0);
  const std::string sorted = Encoded(WithLineEnds(later[1] + later[0])).substr(2);
  EXPECT_TRUE(Saved().ends_with(sorted)) << "in the order that the slots have now";
}

TEST_F(DefinitionFiles, OfTheStyleAreWrittenAsTheyWereRead) {
  gui->SaveStyle();
  gui->LoadStyle(u"x");
  gui->SaveStyle();
  gui->LoadStyle(nullptr);
  gui->SaveStyle();
  EXPECT_TRUE(FilesIn(folder).empty()) << "one character is no name";
  const StringView text =
      u"texture a.png\r\ncolor_normal  80abcdef\r\n\nfont \"Two Words\"\r\n{\r\n\t height -20\r\n"
      u"\t width 7\r\n\t weight 650\r\n\t italic 255\r\n}\r\n";
  AddText(u"xy", text);
  gui->LoadStyle(u"xy");
  gui->SaveStyle();
  ExpectText(BytesOf(folder / "xy"), text);
}

TEST_F(DefinitionFiles, OfPagesMaySayMoreOrLess) {
  const String menu = u"name s\\menu.glb ";
  const struct {
    String text;
    bool loads;
    StringView changed;  // lines that are not saved for the first row's page
  } rows[] = {
      {menu, true, u""},
      {menu + u"anim_in missing.glb anim_out b.glb anim a.glb anim_in a.glb anim_in b.glb", true,
       u"anim_in b.glb;anim_out b.glb;anim a.glb;anim a.glb;"},
      {menu + u"anim_in onclickwav missing.wav", true, u"onclickwav missing.wav;"},  // a value is tried as a key
      {menu + u"item ~BBUTTON { tooltip 7 } item ~bnobody { tooltip 9 } item \"~CHÄLF\" { tooltip 8", true,
       u" tooltip 7; tooltip 8;"},
      {menu + u"item ~bbutton {tooltip 7 tooltip;8}", true, u" tooltip 8;"},
      {menu + u"item ~bbutton { message One:a message \"Two b\";message three } \u00A7 } } { item", true,
       u" message One:a; message Two b; message three;"},
      // Values without a target; the one of a texture is looked at as a keyword.
      {menu + u"item ~ppicture { textid 5 maxselect 6 scale 2.5 alpha 3 active 1 font A { height 4 tooltip 3 }\n"
              u"listitem { name x tooltip 4 message y } b_checked { textid 9 tooltip 5 } texture tooltip 77 }",
       true, u" tooltip 77;"},
      {menu + u"item ~bbutton { color_normal ABCDEF color_select 00123456 shadowoff 2.9 }", true,
       u" color_normal  abcdef; color_select  123456; shadowoff 2.0000;"},
      // Where the text ends, the value is what reading at the end gives.
      {menu + u"onclickwav", false, u""},
      {menu + u"item ~bbutton { min", false, u" min -1;"},
      {menu + u"item ~bbutton { message", false, u" message ;"},
      {menu + u"item ~bbutton { shadowoff", false, u" shadowoff -1.0000;"},
      {menu + u"item ~bbutton { color_select", false, u" color_select  ffffffff;"},
      {menu + u"item ~bbutton { font", false, u" font \"\";"},
      {u"\uFEFF" + menu, true, u""},
      {u"\uFEFF\uFEFF" + menu, false, u"name ;"},
      {u"", false, u"name ;"},
      {u"n", false, u"name ;"},
      {u"item ~bbutton { }", false, u"name ;"},
      {u"name", false, u"name ;"},
      {u"name missing.glb", false, u"name missing.glb;"},
  };
  std::multiset<String> plain;
  for (const auto& row : rows) {
    EXPECT_EQ(Load(row.text), row.loads) << Narrow(row.text);
    const std::vector<String> lines = SplitString(Decoded(Saved()), u"\r\n\t", 0);
    if (plain.empty()) plain = {lines.begin(), lines.end()};
    std::multiset<String> expected = plain;
    String changed;
    for (const String& line : lines) {
      const auto same = expected.find(line);
      if (same == expected.end() && !line.empty()) changed += line + u";";
      if (same != expected.end()) expected.erase(same);
    }
    EXPECT_EQ(Narrow(changed), Narrow(row.changed)) << Narrow(row.text);
  }
  EXPECT_EQ(gui->GetPage(0)->LoadPage(u"no such file", 0), nullptr);
}

}  // namespace
}  // namespace qen::test
