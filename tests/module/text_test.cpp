// How texts are drawn, and where their words come from.
#include "tests/module/text_fixture.h"

namespace qen::test {
namespace {

class Text : public TextTest {};

TEST_F(Text, IsDrawnInItsBox) {
  OpenBox({}, {5, 7, 3});
  EXPECT_EQ(text->GetColors(), (ICGUIText::Colors{0xFFFFFF, 0xFF, 0xFFFF, 0xA0A0A0, 0, 0}));
  text->SetText(u"word");
  EXPECT_EQ(Drawn(), "-15 14.06 -3 | 0 0 40 20 | 50 ffffffff word\n");
  ASSERT_EQ(engine.CallsOf("Drawing::BeginText3D").size(), 1U);
  EXPECT_FLOAT_EQ(static_cast<float>(std::get<double>(engine.CallsOf("Drawing::BeginText3D")[0].arguments[0])), 0.14F);
  EXPECT_EQ(engine.CallsOf("Drawing::GetTextRect").size(), 0U);
  text->GetCentered() = 1;
  text->SetDisabled(1);
  text->SetAlpha(0x80);
  EXPECT_EQ(Drawn(), "-15 14.06 -3 | 0 0 40 20 | 51 80a0a0a0 word\n");
  EXPECT_FALSE(IsDrawn(u"normal_text", 0)) << "the box itself is not";
}

TEST_F(Text, StartsAtTheCornerOfABoxThatIsNotCentred) {
  base::SceneData scene;
  AddTextBox(scene, u"text", {5, 7, 0});
  ShiftMesh(scene, {20, -10, 2});  // its upper left corner is the node's origin
  Open(std::move(scene));
  text->SetText(u"word");
  EXPECT_EQ(Drawn(), "5 4.06 0 | 0 0 40 20 | 50 ffffffff word\n");
}

TEST_F(Text, IsDrawnUnclippedWithoutABox) {
  base::SceneData scene;
  base::AddNode(scene, u"~ttext", -1, {5, 7, 0});
  Open(std::move(scene));
  text->SetText(u"word");
  EXPECT_EQ(Drawn(), "5 4.06 0 | 0 0 0 0 | 100 ffffffff word\n");
  base::SceneData box;
  base::AddBox(box, u"~ttext", -1, {5, 7, 0}, {8, 4.9F, 1});
  Open(std::move(box));
  text->SetText(u"word");
  EXPECT_EQ(Drawn(), "5 4.06 0 | 0 0 16 9 | 100 ffffffff word\n") << "no offset for a mesh of its own";
  EXPECT_FALSE(IsDrawn(u"~ttext", 1));
}

TEST_F(Text, DrawsItsShadowFirst) {
  OpenBox(u"shadowoff 20 color_shadow 0000ff color_shadowsel 00ff00 color_normal 102030");
  text->SetText(u"word");
  EXPECT_EQ(Drawn(),
            "-18 5.06 2 | 0 0 40 20 | 50 ffff0000 word\n"
            "-20 7.06 0 | 0 0 40 20 | 50 ff302010 word\n");
  text->GetShadowOffset() = -10;
  EXPECT_EQ(Drawn().substr(0, 10), "-21 8.06 -");
  for (const float none : {0.0F, INFINITY, -INFINITY, NAN}) {
    text->GetShadowOffset() = none;
    EXPECT_EQ(Drawn(), "-20 7.06 0 | 0 0 40 20 | 50 ff302010 word\n") << none;
  }
}

TEST_F(Text, OfAButtonTakesItsState) {
  base::SceneData scene;
  const std::int32_t node = AddButton(scene, u"ok", {});
  base::AddNode(scene, u"text", node);
  OpenScene(std::move(scene),
            u"item ~bok { shadowoff 1 color_normal 1 color_onmouse 2 color_disabled 3 color_shadow 4 "
            u"color_shadowsel 5 editabled 1 }");
  const auto colors = [this] {
    Frame();
    engine.calls.clear();
    DrawPages();
    std::vector<std::int64_t> both;
    for (const base::Call& call : engine.CallsOf("Drawing::DrawText3D")) {
      both.push_back((std::get<std::int64_t>(call.arguments[3]) & 0xFFFFFF) >> 16);
    }
    return both;
  };
  using Colors = std::vector<std::int64_t>;
  ICGUIObject& ok = *Find(u"~bok");
  MoveTo({1, 1});
  EXPECT_EQ(colors(), (Colors{4, 1}));
  Hover(ok);
  EXPECT_EQ(colors(), (Colors{5, 2}));
  Press();
  EXPECT_EQ(colors(), (Colors{4, 1}));
  ReleaseButton();
  Frame();
  EXPECT_EQ(colors(), (Colors{5, 2})) << "an editable label is not edited for longer than the click";
  ok.SetDisabled(1);
  EXPECT_EQ(colors(), (Colors{4, 3}));
  ok.SetVisible(0);
  EXPECT_EQ(colors(), Colors{});
}

TEST_F(Text, ComesFromTheTableOrItsOwn) {
  AddText(u"texts.txt", u"lang english { str4 Four str5 Five }");
  AddText(u"gui.txt", u"lang texts.txt");
  gui->Load(u"gui.txt", &engine.camera);
  OpenBox(u"textid 4");
  EXPECT_EQ(Words(), "Four");
  text->SetText(u"Vier");
  EXPECT_EQ(gui->GetText(4), u"Vier") << "every text of that id changes";
  EXPECT_EQ(Words(), "Vier");
  for (const std::int32_t id : {6, -2, INT32_MIN, INT32_MAX}) {
    text->SetTextId(id);
    text->SetText(u"lost");
    EXPECT_EQ(Words(), "N/A") << id;
  }
  text->SetTextId(-1);
  EXPECT_EQ(Words(), "") << "its own was never set";
  text->SetText("narrow");
  EXPECT_EQ(Words(), "narrow");
  for (const auto& [number, words] :
       {std::pair{-5, "-5"}, {0, "0"}, {INT32_MIN, "-2147483648"}, {INT32_MAX, "2147483647"}}) {
    text->SetNumber(number);
    EXPECT_EQ(Words(), words);
  }
  text->GetTextId() = 5;
  text->SetNumber(7);
  EXPECT_EQ(gui->GetText(5), u"7");
  text->SetTextId(-1);
  text->SetText(static_cast<const Char*>(nullptr));
  EXPECT_EQ(Words(), "");
  text->SetText(static_cast<const char*>(nullptr));
  EXPECT_EQ(Words(), "");
}

TEST_F(Text, MakesItsFontAnew) {
  OpenBox(u"font Serif { height -10 width 3 weight 400 italic 255 }");
  const base::Call made = engine.CallsOf("FontManager::CreateEx").back();
  EXPECT_EQ(std::get<std::string>(made.arguments[0]), "Serif");
  EXPECT_EQ(std::get<std::int64_t>(made.arguments[1]), -10);
  EXPECT_EQ(std::get<std::int64_t>(made.arguments[2]), 3);
  EXPECT_EQ(std::get<std::int64_t>(made.arguments[3]), 400);
  EXPECT_EQ(std::get<bool>(made.arguments[4]), true);
  EXPECT_EQ(std::get<std::int64_t>(made.arguments[5]), 1);
  EXPECT_EQ(std::get<std::string>(made.arguments[6]), "_DefaultGroup_");
  text->GetFontDesc().lfItalic = 254;
  engine.calls.clear();
  text->RecreateFont();
  EXPECT_EQ(engine.calls[0].name, "FontManager::Destroy") << "the old one first";
  EXPECT_EQ(std::get<bool>(engine.calls[1].arguments[4]), false);

  text->SetText(u"word");
  engine.fonts.missing.insert(u"Serif");
  text->GetFontDesc().lfHeight = 30;
  text->RecreateFont();
  text->RecreateFont();
  EXPECT_EQ(text->GetFont(), nullptr);
  EXPECT_EQ(Drawn(), "") << "nothing is drawn without one";
  engine.fonts.missing.clear();
  for (const std::int32_t height : {0, 1, INT32_MIN, INT32_MAX}) {
    text->GetFontDesc().lfHeight = height;
    text->RecreateFont();
    EXPECT_NE(text->GetFont(), nullptr) << height;
    EXPECT_EQ(Words(), "word") << height;
  }
  EXPECT_EQ(engine.fonts.faceCount, 1) << "the old ones are given back";
}

}  // namespace
}  // namespace qen::test
