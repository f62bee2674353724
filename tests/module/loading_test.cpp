// The description file, languages, style and tooltips.
#include "tests/module/gui_fixture.h"

namespace qen::test {
namespace {

class Loading : public GuiTest {
 protected:
  Loading() {
    AddText(u"texts.txt",
            u"lang english { str1 Play str007 \"Two words\" str2 a\\nb\\\\\\tc str1 Again strx zero str-3 minus }\n"
            u"lang german { str1 Spielen str5 \"}\" str6 lost }\n"
            u"lang english { str1 Third str9 Nine }\n");
    AddText(u"style.txt", u"texture panel.png color_normal ff8040 font Serif { height -20 italic 255 }");
    engine.AddPictureFile(u"panel.png");
    AddButtonPage(u"menu", {u"ok"}, u"item ~bok { tooltip 7 }");
  }

  bool LoadText(StringView description) {
    AddText(u"gui.txt", description);
    const bool result = gui->Load(u"gui.txt", &engine.camera);
    gui->SetViewport(&engine.viewport);
    return result;
  }
};

TEST_F(Loading, ShowsItsProgress) {
  EXPECT_TRUE(LoadText(u"lang texts.txt name menu.txt tool style.txt"));
  EXPECT_EQ(engine.log,
            (Words{u"Gui: Parsing gui language ...", u"Gui: Parsing gui language done [0.0 sec]...",
                   u"Gui: Parsing gui pages ...", u"... [0.0 sec]", u"Gui: Parsing gui pages done [0.0 sec]..."}));
  EXPECT_TRUE(engine.errors.empty());
}

TEST_F(Loading, AnswersAsItsLastKeyDid) {
  AddText(u"short.txt", u"");
  struct Row {
    StringView text;
    bool result;
    std::uint32_t pages;
  };
  const Row rows[] = {{u"", true, 0},
                      {u"lang texts.txt", true, 0},
                      {u"name missing.txt", true, 1},
                      {u"tool missing.txt", true, 0},
                      {u"tool short.txt", false, 0},
                      {u"tool short.txt name menu.txt", true, 1},
                      {u"name", true, 1},
                      {u"name tool short.txt", false, 1},
                      {u"\uFEFFname menu.txt", true, 0},
                      {u"bagname missing.txt", true, 1}};
  for (const Row& row : rows) {
    EXPECT_EQ(LoadText(row.text), row.result) << Narrow(row.text);
    EXPECT_EQ(gui->GetPageCount(), row.pages) << Narrow(row.text);
    gui->Release();
  }
  EXPECT_FALSE(gui->Load(u"no such file", &engine.camera));
  EXPECT_FALSE(gui->Load(nullptr, nullptr));
}

TEST_F(Loading, ASecondLoadAddsPagesAndForgetsUndoAndStyle) {
  LoadText(u"name menu.txt tool style.txt");
  ShowOnly(0);
  gui->GetRenderPages().clear();
  gui->SetPage(0);
  Deliver();
  LoadText(u"name menu.txt");
  EXPECT_EQ(gui->GetPageCount(), 2U);
  Say(*Find(u"~bok"), {u"undopage"});
  Click(*Find(u"~bok"));
  EXPECT_EQ(gui->GetRenderPages(), std::vector<std::uint32_t>{0}) << "as the page was set";
  engine.calls.clear();
  gui->CreateStyleResources();
  EXPECT_TRUE(engine.CallsOf("FontManager::CreateEx").empty());
}

TEST_F(Loading, ReadsTheTextsOfOneLanguage) {
  LoadText(u"lang nothing.txt lang texts.txt");
  EXPECT_EQ(gui->GetLanguages(), (Words{u"english", u"german", u"english"}));
  EXPECT_EQ(gui->GetLanguage(), u"english");
  const std::pair<std::int32_t, StringView> english[] = {{1, u"Play"}, {7, u"Two words"}, {2, u"a\nb\\\tc"},
                                                         {9, u"Nine"}, {0, u"zero"},      {5, u"N/A"},
                                                         {-3, u"N/A"}, {-1, u"N/A"},      {100000, u"N/A"}};
  for (const auto& [id, words] : english) EXPECT_EQ(gui->GetText(id), words) << id;
  EXPECT_TRUE(gui->SetLanguageText(1, u"Go\\n"));
  EXPECT_EQ(gui->GetText(1), u"Go\\n");
  EXPECT_FALSE(gui->SetLanguageText(5, u"x"));
  EXPECT_FALSE(gui->SetLanguageText(-1, u"x"));

  gui->SetLanguage(u"german");
  EXPECT_EQ(gui->GetText(1), u"Spielen");
  EXPECT_EQ(gui->GetText(5), u"}");
  EXPECT_EQ(gui->GetText(6), u"N/A") << "a text that reads } ends the section";
  gui->SetLanguage(u"Klingon");
  EXPECT_TRUE(gui->IsTextTableEmpty());
  EXPECT_TRUE(gui->GetTexts().empty());
}

TEST_F(Loading, IsNotDeactivatedByWhoHearsOfAFault) {
  AddText(u"bare.txt", u"texture none.png");
  std::vector<String> heard;
  engine.engine.SetLogSink([&](StringView line, bool) {
    heard.emplace_back(line);
    if (heard.size() == 1) module.Export<DeactivateDllFunction>(kDeactivateDll)();
  });
  EXPECT_TRUE(gui->LoadStyle(u"bare.txt"));
  engine.engine.SetLogSink([](StringView, bool) {});
  EXPECT_EQ(heard, (Words{u"Can't load texture none.png", u"Gui is busy: not deactivated"}));
}

TEST_F(Loading, MakesTheStyleFromItsFile) {
  LoadText(u"tool style.txt");
  EXPECT_EQ(gui->GetStyleColor(), 0xFF8040U);
  EXPECT_EQ(StringView(gui->GetStyleFont().lfFaceName), u"Serif");
  EXPECT_EQ(gui->GetStyleFont().lfHeight, -20);
  EXPECT_EQ(gui->GetStyleFont().lfWeight, 700) << "a default";
  EXPECT_EQ(gui->GetStyleTexture(), u"panel.png");
  const std::vector<base::Call> fonts = engine.CallsOf("FontManager::CreateEx");
  ASSERT_EQ(fonts.size(), 1U);
  EXPECT_EQ(std::get<bool>(fonts[0].arguments[4]), true) << "italic";
  AddText(u"plain.txt", u"texture panel.png font Mono { italic 1 }");
  gui->LoadStyle(u"plain.txt");
  EXPECT_EQ(CallNames({"TextureManager"}),
            (std::vector<std::string>{"TextureManager::Load", "TextureManager::Destroy", "TextureManager::Load"}))
      << "the picture is read anew";
  EXPECT_EQ(gui->GetStyleFont().lfHeight, -18);
  EXPECT_EQ(std::get<bool>(engine.CallsOf("FontManager::CreateEx").back().arguments[4]), false);
  EXPECT_EQ(gui->GetStyleColor(), 0xFF8040U) << "kept from before";
  const String longFace(100, u'x');
  AddText(u"long.txt", u"font " + longFace);
  EXPECT_TRUE(gui->LoadStyle(u"long.txt"));
  EXPECT_EQ(StringView(gui->GetStyleFont().lfFaceName), longFace.substr(0, 31));
}

class Tooltip : public Loading {
 protected:
  Tooltip() {
    LoadText(u"lang texts.txt name menu.txt tool style.txt");
    ShowOnly(0);
    Frame();
  }

  // The quads and texts that the overlay draws.
  std::size_t Drawn() {
    engine.calls.clear();
    engine.Draw([this] { gui->DrawTooltip(&engine.viewport); });
    return engine.CallsOf("Drawing::DrawQuad2D").size() + engine.CallsOf("Drawing::DrawText2D").size();
  }
};

TEST_F(Tooltip, AppearsAfterASecondOfRest) {
  Hover(*Find(u"~bok"));
  Frame(0.1);
  for (int i = 0; i < 9; ++i) Frame(0.1);
  EXPECT_EQ(Drawn(), 0U);
  Frame(0.1);
  Frame(0.1);
  ASSERT_EQ(Drawn(), 2U);
  const base::Call text = engine.CallsOf("Drawing::DrawText2D")[0];
  EXPECT_EQ(std::get<std::string>(text.arguments.back()), "Two words");
  Send(message::kMouseMove);
  EXPECT_EQ(Drawn(), 0U) << "a move message starts the second anew";
}

TEST_F(Tooltip, FollowsTheTextAndTheStyle) {
  Hover(*Find(u"~bok"));
  Frame(1.0);
  Frame(1.0);
  Frame(1.0);
  struct Row {
    std::int32_t id;
    std::size_t drawn;
  };
  gui->SetLanguageText(7, u"x");
  for (const Row& row : {Row{7, 0}, {1, 2}, {-1, 0}, {500, 2}}) {
    gui->SetTooltip(row.id);
    EXPECT_EQ(Drawn(), row.drawn) << row.id;
  }
  gui->SetTooltip(1);
  gui->LoadStyle(u"s");
  EXPECT_EQ(Drawn(), 0U) << "a style file name of one character is none";
}

TEST_F(Tooltip, StaysBesideTheCursor) {
  for (const std::int32_t x : {0, 400, 800}) {
    gui->SetCursor(x, 300);
    for (int i = 0; i < 3; ++i) Frame(1.0);
    gui->SetTooltip(1);
    ASSERT_EQ(Drawn(), 2U);
    const base::Call text = engine.CallsOf("Drawing::DrawText2D")[0];
    const base::Call quad = engine.CallsOf("Drawing::DrawQuad2D")[0];
    const auto left = std::get<std::int64_t>(text.arguments[0]);
    EXPECT_LE(left, x);
    EXPECT_EQ(std::get<std::int64_t>(quad.arguments[3]), 300);
    EXPECT_EQ(std::get<std::int64_t>(quad.arguments[1]), std::get<std::int64_t>(text.arguments[1]));
    EXPECT_EQ(left == x, x == 0) << "starts at the cursor at the left edge only";
    EXPECT_LT(std::get<std::int64_t>(quad.arguments[0]), left);
  }
}

}  // namespace
}  // namespace qen::test
