// What a button shows, reports and does.
#include "tests/module/gui_fixture.h"

namespace qen::test {
namespace {

class Button : public GuiTest {
 protected:
  Button() {
    engine.AddSound(u"hover.wav");
    engine.AddSound(u"click.wav");
    AddButtonPage(u"menu", {u"ok", u"quit"},
                  u"onmousewav hover.wav onclickwav click.wav item ~bok { message play:level1 message second }");
    page = OpenPage(u"menu.txt");
    ShowOnly(0);
    ok = Find(u"~bok");
    quit = Find(u"~bquit");
    listener.onRecord = [](std::uint32_t, GuiMessage& record) { record.handled = 1; };
  }

  // Which of the button's meshes the renderer gets.
  String Shown(const String& name) {
    String shown;
    for (const StringView state : {u"normal", u"onmouse", u"disabled"}) {
      if (IsDrawn(String(state) + u"_" + name)) shown += String(state) + u" ";
    }
    return shown;
  }

  ICGUIPageObject* page = nullptr;
  ICGUIObject* ok = nullptr;
  ICGUIObject* quit = nullptr;
};

TEST_F(Button, ShowsExactlyOneMesh) {
  MoveTo({1, 1});
  Frame();
  EXPECT_EQ(Shown(u"ok"), u"normal ");
  Hover(*ok);
  Frame();
  EXPECT_EQ(Shown(u"ok"), u"onmouse ");
  EXPECT_EQ(Shown(u"quit"), u"normal ");
  Press();
  Frame();
  EXPECT_EQ(Shown(u"ok"), u"normal ") << "a held button dips";
  ok->SetDisabled(1);
  Frame();
  EXPECT_EQ(Shown(u"ok"), u"disabled ");
  ok->SetVisible(0);
  Frame();
  EXPECT_EQ(Shown(u"ok"), u"");
}

TEST_F(Button, ClicksOnTheFrameOfTheReleaseOnly) {
  Click(*ok);
  EXPECT_EQ(listener.Texts(), (std::vector<String>{u"play:level1", u"second:"}));
  EXPECT_EQ(listener.records[0].record.source, ok);
  EXPECT_EQ(listener.records[0].record.page, page);
  listener.records.clear();

  Hover(*ok);
  Press();
  Frame();
  Hover(*quit);
  ReleaseButton();
  Frame();
  EXPECT_TRUE(listener.records.empty()) << "released elsewhere";

  Press();
  Frame();
  Hover(*ok);
  ReleaseButton();
  Frame();
  Frame();
  EXPECT_EQ(listener.records.size(), 2U) << "pressed elsewhere, released here: one click";
}

TEST_F(Button, DisabledDoesNothing) {
  ok->SetDisabled(1);
  Click(*ok);
  EXPECT_TRUE(listener.records.empty());
  EXPECT_TRUE(engine.sound.played.empty());
  EXPECT_EQ(page->Pick(&engine.viewport, 0, 0, 0, 0, 0), nullptr);
}

TEST_F(Button, SoundsOnAPageThatWasLoadedAnew) {
  for (std::size_t times = 1; times <= 5; ++times) {
    Hover(*Find(u"~bok"));
    Frame();
    EXPECT_EQ(engine.sound.played.size(), times) << "wherever the new button lies in memory";
    gui->Release();
    OpenPage(u"menu.txt");
    ShowOnly(0);
  }
}

TEST_F(Button, SoundsOnceOnEnteringAndOnEachClick) {
  using Sounds = std::vector<std::string>;
  Hover(*ok);
  Frame();
  Frame();
  EXPECT_EQ(engine.sound.played, (Sounds{"hover.wav"}));
  Hover(*quit);
  Frame();
  Hover(*ok);
  Frame();
  EXPECT_EQ(engine.sound.played.size(), 3U);
  Click(*ok);
  EXPECT_EQ(engine.sound.played.back(), "click.wav");
  Frame();
  EXPECT_EQ(engine.sound.played.size(), 4U) << "the clicked button was the last to sound";
  page->PlaySound(quit, 7);
  page->PlaySound(ok, sound_kind::kMouse);
  EXPECT_EQ(engine.sound.played.size(), 4U) << "an unknown kind changes nothing";
}

TEST_F(Button, ReportsToThePageAndTakesTheFocus) {
  const base::Point at = ProjectMiddle(*quit);
  EXPECT_EQ(PickAt(at, 0), Picked(quit, nullptr));
  EXPECT_EQ(page->focusIndex, 1);
  EXPECT_EQ(PickAt(at, 1, 0, 2), Picked(quit, quit)) << "the larger button state counts";
  EXPECT_EQ(PickAt(at, 1), std::nullopt) << "held";
}

TEST_F(Button, MovesWithItsMatrix) {
  Matrix4x4 matrix = Matrix4x4::Identity;
  ok->GetMatrix(matrix);
  matrix.SetTranslation({-40.0F, 30.0F, 0.0F});
  ok->SetMatrix(matrix);
  Hover(*ok);
  Frame();
  EXPECT_EQ(ok->state, 2);
}

TEST_F(Button, TheEarlierOfTwoOverlappingIsPicked) {
  Matrix4x4 matrix = Matrix4x4::Identity;
  ok->GetMatrix(matrix);
  matrix.SetTranslation(matrix.GetTranslation() + Vec3{0, 0, 20.0F});
  quit->SetMatrix(matrix);
  EXPECT_EQ(PickAt(ProjectMiddle(*quit), 0), Picked(ok, nullptr));
  EXPECT_EQ(quit->state, 2) << "both are updated";
}

TEST_F(Button, MouseStatesFollowTheMessages) {
  struct Row {
    std::uint32_t message;
    std::uint32_t button;
    std::uint32_t wanted;
  };
  const Row rows[] = {{message::kButtonDown, 2, 0}, {message::kButtonDown, 1, 1}, {message::kFrame, 0, 1},
                      {message::kButtonUp, 2, 1},   {message::kButtonUp, 1, 2},   {message::kFrame, 0, 0}};
  for (const Row& row : rows) {
    Send(row.message, row.button);
    Frame();
    EXPECT_EQ(ok->info->mouseState, row.wanted) << row.message << " " << row.button;
  }
  Press();
  ReleaseButton();
  Send(message::kKey, 13);
  EXPECT_EQ(ok->info->key, 13);
  EXPECT_EQ(ok->info->mouseState, 0U) << "a key's update has no mouse";
  Frame();
  EXPECT_EQ(ok->info->mouseState, 2U) << "and does not take the release";
  EXPECT_EQ(ok->info->key, 0);
}

}  // namespace
}  // namespace qen::test
