// The description file, languages, style and tooltips.
#include "tests/module/gui_fixture.h"

namespace qen::test {
namespace {

using Lines = std::vector<std::string>;

class Loading : public GuiTest {
 protected:
  Loading() {
    AddText(u"texts.txt",
            u"lang english { str1 Play str007 \"Two words\" str2 a\\nb\\\\\\tc str1 Again strx zero str-3 minus }\n"
            u"lang german { str1 Spielen str5 \"}\" str6 lost }\n"
            u"lang english { str1 Third str9 Nine }\n");
    AddText(u"style.txt", u"texture panel.png color_normal ff8040 font Serif { height -20 width 3 italic 255 }");
    AddText(u"short.txt", u"");
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

TEST_F(Loading, AddsThePagesAndFailsWithAStyleThatIsTooShort) {
  const std::pair<StringView, std::uint32_t> rows[] = {{u"", 0},
                                                       {u"lang texts.txt", 0},
                                                       {u"name missing.txt name menu.txt", 2},
                                                       {u"tool missing.txt", 0},
                                                       {u"tool short.txt", 0},
                                                       {u"tool short.txt name menu.txt", 1},
                                                       {u"name", 1},
                                                       {u"name tool short.txt", 1},
                                                       {u"\uFEFFname menu.txt", 0},
                                                       {u"bagname missing.txt", 1}};
  for (const auto& [text, pages] : rows) {
    EXPECT_EQ(LoadText(text), !text.ends_with(u"short.txt")) << Narrow(text);
    EXPECT_EQ(gui->GetPageCount(), pages) << Narrow(text);
    gui->Release();
  }
  EXPECT_FALSE(gui->Load(u"no such file", &engine.camera) || gui->Load(nullptr, nullptr));
}

#ifndef _WIN32  // There the module asks the system for the time.
TEST_F(Loading, TellsHowLongItTakes) {
  Words log;
  engine.engine.SetLogSink([&](StringView line, bool isError) {
    engine.clock.Advance(1.26);
    log.push_back(String(isError ? u"error: " : u"") + String(line));
  });
  LoadText(u"lang texts.txt name menu.txt tool style.txt");
  engine.engine.SetLogSink([](StringView, bool) {});
  EXPECT_EQ(log, (Words{u"Gui: Parsing gui language ...", u"Gui: Parsing gui language done [0.0 sec]...",
                        u"Gui: Parsing gui pages ...", u"... [0.0 sec]", u"Gui: Parsing gui pages done [1.3 sec]..."}));
}
#endif

TEST_F(Loading, ReadsTheTextsOfOneLanguage) {
  const auto texts = [this](std::initializer_list<std::int32_t> ids) {
    String all;
    for (const std::int32_t id : ids) all += gui->GetText(id) + u"|";
    return all;
  };
  LoadText(u"lang nothing.txt lang texts.txt");
  EXPECT_EQ(gui->GetLanguages(), (Words{u"english", u"german", u"english"}));
  EXPECT_EQ(texts({1, 7, 2, 9, 0, 5, -3, -1}), u"Play|Two words|a\nb\\\tc|Nine|zero|N/A|N/A|N/A|");
  EXPECT_TRUE(gui->SetLanguageText(1, u"Go\\n") && gui->SetLanguageText(0, u"0"));
  EXPECT_FALSE(gui->SetLanguageText(5, u"x") || gui->SetLanguageText(-1, u"x") || gui->SetLanguageText(-3, u"x"));
  EXPECT_EQ(texts({1, 0}), u"Go\\n|0|");
  gui->SetLanguage(u"german");
  EXPECT_EQ(texts({1, 5, 6}), u"Spielen|}|N/A|") << "a text that reads } ends the section";
  gui->SetLanguage(u"Klingon");
  EXPECT_TRUE(gui->IsTextTableEmpty());
}

TEST_F(Loading, MakesTheStyleFromItsFile) {
  AddText(u"all.txt", u"color_normal ff8040 font Serif { height -20 width 3 italic 255 }");
  AddText(u"long.txt", u"font " + String(100, u'x'));
  gui->LoadStyle(u"all.txt");
  gui->LoadStyle(u"long.txt");
  const Lines made = CallTexts({"FontManager::CreateEx"});
  EXPECT_TRUE(made.at(0).starts_with("FontManager::CreateEx Serif -20 3 700 true 1 "));
  EXPECT_TRUE(made.at(1).starts_with("FontManager::CreateEx " + std::string(31, 'x') + " -18 0 700 false 1 "));
  EXPECT_EQ(gui->GetStyleColor(), 0xFF8040U) << "kept from before";
}

TEST_F(Loading, ShowsATooltipAfterASecondOfRestAboveTheCursorAndInTheViewport) {
  LoadText(u"lang texts.txt name menu.txt tool style.txt");
  ShowOnly(0);
  gui->SetLanguageText(1, u"x");
  gui->SetLanguageText(9, u"xy");
  const auto drawn = [this] {
    engine.calls.clear();
    engine.Draw([this] { gui->DrawTooltip(&engine.viewport); });
    std::string all;
    for (const std::string& line : CallTexts({"Drawing::DrawQuad2D", "Drawing::DrawText2D"})) {
      all += line.substr(line.find(' ') + 1) + "; ";
    }
    return all;
  };
  // The background is half a "W" wider than the text on either side.
  const std::tuple<std::int32_t, std::int32_t, std::string> rows[] = {
      {0, 7, "-5 280 95 300 4294967295; 0 280 4282417407 Two words; "},
      {800, 7, "705 280 805 300 4294967295; 710 280 4282417407 Two words; "},
      {0, 9, "-5 280 25 300 4294967295; 0 280 4282417407 xy; "},
      {0, 1, ""},  // of one character
      {0, -1, ""}};
  for (const auto& [x, id, wanted] : rows) {
    gui->SetCursor(x, 300);
    for (int i = 0; i < 12; ++i) {
      Frame(0.1);
      gui->SetTooltip(id);
      EXPECT_TRUE(i >= 10 || drawn().empty()) << i;
    }
    EXPECT_EQ(drawn(), wanted) << id;
  }
  gui->SetTooltip(7);
  gui->LoadStyle(u"s");
  EXPECT_EQ(drawn(), "") << "a style file name of one character is none";
}

}  // namespace
}  // namespace qen::test
