// Texts that the player edits.
#include "tests/module/text_fixture.h"

namespace qen::test {
namespace {

class TextEdit : public TextTest {
 protected:
  void Edit(StringView properties = {}) {
    OpenBox(u"editabled 1 " + String(properties));
    Click(*text);
    ASSERT_EQ(text->state, kEditing);
  }

  // Whether the input method is on after a frame.
  bool ImeOn() {
    Frame();
    engine.engine.BeginFrame();
    engine.engine.EndFrame(engine.viewport);
    return !engine.ime.changes.empty() && engine.ime.changes.back();
  }

  static constexpr std::int32_t kEditing = 3;
};

TEST_F(TextEdit, BeginsWithAClickOnIt) {
  OpenBox(u"editabled 1");
  text->SetText(u"its own");
  text->GetEditText() = u"typed";
  EXPECT_EQ(Words(), "typed") << "an editable text shows its buffer only";
  Type(u"x");
  Aim({30, 0, -1});
  ClickHere();
  EXPECT_EQ(text->state, 0) << "beside it";
  Aim({0, 0, -1});
  Frame();
  Press();
  Frame();
  EXPECT_EQ(text->state, 0) << "not before the release";
  ReleaseButton();
  Frame();
  EXPECT_EQ(text->state, kEditing);
  EXPECT_EQ(text->GetEditText(), u"typed");
  Aim({30, 0, -1});
  ClickHere();
  EXPECT_EQ(text->state, kEditing) << "a click elsewhere does not end it";
  Type(u"\r");
  EXPECT_EQ(text->state, 0);
  EXPECT_EQ(text->GetEditText(), u"typed");

  text->SetDisabled(1);
  Click(*text);
  EXPECT_EQ(text->state, 0);
  text->SetDisabled(0);
  text->GetEditable() = 0;
  Click(*text);
  EXPECT_EQ(text->state, 0);
  EXPECT_EQ(Words(), "its own");
}

TEST_F(TextEdit, TakesKeysUpToItsLimit) {
  Edit();
  Type(u"abc");
  EXPECT_EQ(text->GetEditText(), u"abc");
  Type(u"\b\bd\t ");
  EXPECT_EQ(text->GetEditText(), u"ad\t ") << "every other code is a character";
  Type(u"\b\b\b\b\b\b");
  EXPECT_EQ(text->GetEditText(), u"");
  Type(u"0123456789abcdefghij");
  EXPECT_EQ(text->GetEditText(), u"0123456789abcdef");
  Type(u"\bz!");
  EXPECT_EQ(text->GetEditText(), u"0123456789abcdez");
  text->GetMaxChars() = 3;
  Type(u"\b");
  EXPECT_EQ(text->GetEditText(), u"0123456789abcde");
  Type(u"x");
  EXPECT_EQ(text->GetEditText(), u"0123456789abcde") << "longer than its limit already";
  for (const std::int32_t none : {0, -1, INT32_MIN}) {
    text->GetEditText().clear();
    text->GetMaxChars() = none;
    Type(u"x\b\U0001F600");
    EXPECT_EQ(text->GetEditText(), u"") << none;
  }
  text->GetMaxChars() = INT32_MAX;
  Type(u"xyz");
  EXPECT_EQ(text->GetEditText(), u"xyz");
  Type(u"\rmore");
  EXPECT_EQ(text->GetEditText(), u"xyz") << "over";
}

TEST_F(TextEdit, KeepsTheTwoHalvesOfACharacterTogether) {
  Edit(u"maxchars 4");
  Type(u"a\U0001F600");
  EXPECT_EQ(text->GetEditText(), u"a\U0001F600");
  EXPECT_EQ(Words().substr(0, 5), "a\xF0\x9F\x98\x80");
  Type(u"\b");
  EXPECT_EQ(text->GetEditText(), u"a");
  Type(u"bc\U0001F600");
  EXPECT_EQ(text->GetEditText(), u"abc") << "there is room for one half only";
  Type(u"d\b\b\U0001F600");
  EXPECT_EQ(text->GetEditText(), u"ab\U0001F600");
  Type(u"\b\b\b\b\xDE00");
  EXPECT_EQ(text->GetEditText(), u"") << "a second half alone is nothing";
  for (const Char* keys : {u"a\xD83D"
                           u"x",
                           u"ax\xD83D\r"}) {
    Edit();
    text->GetEditText().clear();
    Type(keys);
    EXPECT_EQ(text->GetEditText(), u"ax") << "nor is a first one";
  }
}

TEST_F(TextEdit, BlinksItsCaretWhileEditing) {
  Edit();
  Type(u"ab");
  int shown = 0;
  std::string pattern;
  for (int i = 0; i < 40; ++i) {
    Frame(0.05);
    engine.calls.clear();
    DrawPages();
    const std::string words = std::get<std::string>(engine.CallsOf("Drawing::DrawText3D")[0].arguments.back());
    EXPECT_TRUE(words == "ab" || words == "ab|") << words;
    pattern += words == "ab" ? '.' : '|';
    shown += words == "ab|" ? 1 : 0;
  }
  EXPECT_NEAR(shown, 20, 1) << pattern;
  EXPECT_NE(pattern.find("||||||||||.........."), std::string::npos) << "half a second each: " << pattern;
  EXPECT_EQ(text->GetEditText(), u"ab");
  Type(u"\r");
  for (int i = 0; i < 20; ++i) {
    Frame(0.05);
    EXPECT_EQ(Words(), "ab");
  }
}

TEST_F(TextEdit, NeedsTheInputMethodWhileItLasts) {
  OpenBox(u"editabled 1");
  EXPECT_FALSE(ImeOn());
  Click(*text);
  EXPECT_TRUE(ImeOn());
  EXPECT_TRUE(ImeOn());
  Type(u"\r");
  EXPECT_FALSE(ImeOn());
  Click(*text);
  EXPECT_TRUE(ImeOn());
  text->SetVisible(0);
  EXPECT_FALSE(ImeOn());
  text->SetVisible(1);
  EXPECT_FALSE(ImeOn()) << "hiding ended it";
  Click(*text);
  EXPECT_TRUE(ImeOn());
  gui->GetActivePages().clear();
  EXPECT_FALSE(ImeOn()) << "a page without input";
}

TEST_F(TextEdit, GoesOnWhileDisabledAndStopsWithoutAFont) {
  Edit();
  text->SetDisabled(1);
  Type(u"a");
  EXPECT_EQ(text->GetEditText(), u"a") << "disabling keeps editing from beginning only";
  engine.fonts.missing.insert(u"Courier");
  text->GetFontDesc().lfHeight = 5;
  text->RecreateFont();
  Type(u"b");
  EXPECT_EQ(text->GetEditText(), u"a");
}

TEST_F(TextEdit, WithoutABoxIsHitAtItsOwnMesh) {
  base::SceneData scene;
  base::AddBox(scene, u"~ttext", -1, {}, {8, 4, 1});
  Open(std::move(scene), u"editabled 1");
  Click(*text);
  EXPECT_EQ(text->state, kEditing);
  base::SceneData bare;
  base::AddNode(bare, u"~ttext");
  Open(std::move(bare), u"editabled 1");
  Aim({});
  ClickHere();
  EXPECT_EQ(text->state, 0) << "nothing to hit";
}

}  // namespace
}  // namespace qen::test
