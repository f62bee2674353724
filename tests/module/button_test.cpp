// When buttons click and sound.
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
    Open();
    listener.onRecord = [](std::uint32_t, GuiMessage& record) { record.handled = 1; };
  }

  void Open() {
    gui->Release();
    page = OpenPage(u"menu.txt");
    ShowOnly(0);
    ok = Find(u"~bok");
    quit = Find(u"~bquit");
  }

  ICGUIPageObject* page = nullptr;
  ICGUIObject* ok = nullptr;
  ICGUIObject* quit = nullptr;
};

TEST_F(Button, ClicksWhereItIsReleased) {
  Hover(*quit);
  Press();
  Frame();
  Hover(*ok);
  ReleaseButton();
  Send(message::kKey, 13);  // whose update has no mouse and does not take the release
  for (int i = 0; i < 3; ++i) Frame();
  EXPECT_EQ(listener.Texts(), (Words{u"play:level1", u"second:"})) << "once";
  EXPECT_EQ(listener.records[0].record.source, ok);
  EXPECT_EQ(listener.records[0].record.page, page);
  EXPECT_EQ(page->focusIndex, ok->GetId());
  EXPECT_EQ(PickAt(ProjectMiddle(*quit), 1, 0, 2), Picked(quit, quit)) << "the larger of both mouse buttons' states";
  EXPECT_EQ(page->focusIndex, quit->GetId());
}

TEST_F(Button, SoundsOnceOnEnteringAndOnEachClick) {
  for (int i = 0; i < 5; ++i) {
    Open();
    for (ICGUIObject* entered : {ok, quit, ok}) {
      Hover(*entered);
      Frame();
      Frame();
      EXPECT_EQ(std::exchange(engine.sound.played, {}).size(), 1U) << "wherever the new button lies in memory";
    }
  }
  Click(*ok);
  Frame();
  EXPECT_EQ(engine.sound.played, std::vector<std::string>{"click.wav"}) << "the clicked button was the last to sound";
}

TEST_F(Button, TheEarlierOfTwoIsPickedAfterOneIsMovedOntoTheOther) {
  Matrix4x4 matrix = Matrix4x4::Identity;
  ok->GetMatrix(matrix);
  matrix.SetTranslation(matrix.GetTranslation() + Vec3{0, 0, 20.0F});
  quit->SetMatrix(matrix);
  EXPECT_EQ(PickAt(ProjectMiddle(*quit), 0), Picked(ok, nullptr));
  EXPECT_EQ(quit->state, 2) << "both are updated";
  for (const StringView state : {u"normal_quit", u"onmouse_quit", u"disabled_quit"}) {
    EXPECT_EQ(gui->GetNodeMatrix(0, state.data())->GetTranslation().z, 20.0F) << Narrow(state);
  }
}

}  // namespace
}  // namespace qen::test
