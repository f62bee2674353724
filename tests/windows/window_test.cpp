// The module on a real window, with the system's own cursor.
#include "engine/system.h"
#include "tests/module/gui_fixture.h"
#include "tests/windows/imports.h"

namespace qen::test {
namespace {

// Of the size that the recording engine takes for its own, somewhere on the screen, with a frame round its client area.
class RealWindow : public GuiTest {
 protected:
  RealWindow() {
    module.UseWindow(nullptr);
    RECT outer{60, 40, 60 + engine.window.size.x, 40 + engine.window.size.y};
    AdjustWindowRect(&outer, WS_OVERLAPPEDWINDOW, 0);
    window_ = CreateWindowExW(0, L"STATIC", L"Men\u00FC", WS_OVERLAPPEDWINDOW | WS_VISIBLE, outer.left, outer.top,
                              outer.right - outer.left, outer.bottom - outer.top, nullptr, nullptr, nullptr, nullptr);
    System::SetMainWindowHandle(window_);
  }
  ~RealWindow() override {
    System::SetMainWindowHandle(nullptr);
    DestroyWindow(window_);
  }

  void SetUp() override {
    ASSERT_NE(window_, nullptr) << "no screen";
    RECT client{};
    ASSERT_TRUE(GetClientRect(window_, &client));
    ASSERT_EQ(client.right, engine.window.size.x);
    ASSERT_EQ(client.bottom, engine.window.size.y);
    AddButtonPage(u"row", {u"a", u"b", u"c"});
    OpenPage(u"row.txt");
    ShowOnly(0);
  }

  void PlaceCursor(base::Point client) {
    POINT point{client.x, client.y};
    ASSERT_TRUE(ClientToScreen(window_, &point));
    ASSERT_TRUE(SetCursorPos(point.x, point.y));
    Send(message::kMouseMove);
    Frame();
  }

  [[nodiscard]] POINT Cursor() const {
    POINT point{};
    GetCursorPos(&point);
    ScreenToClient(window_, &point);
    return point;
  }

  HWND window_ = nullptr;
};

TEST_F(RealWindow, PicksWhatIsUnderTheCursor) {
  for (const String name : {u"~ba", u"~bb", u"~bc"}) {
    const base::Point middle = ProjectMiddle(*Find(name));
    PlaceCursor(middle);
    for (const ICGUIObject* widget : gui->GetPageItems(0)) {
      EXPECT_EQ(widget->state, widget->info->name == name ? 2 : 1) << Narrow(name) << Narrow(widget->info->name);
    }
    PlaceCursor({middle.x, middle.y + 40});
    EXPECT_EQ(Find(name)->state, 1) << Narrow(name) << " beside";
  }
}

TEST_F(RealWindow, FollowsTheWindow) {
  const base::Point middle = ProjectMiddle(*Find(u"~bb"));
  PlaceCursor(middle);
  ASSERT_EQ(Find(u"~bb")->state, 2);
  SetWindowPos(window_, nullptr, 260, 180, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
  Send(message::kMouseMove);
  Frame();
  EXPECT_EQ(Find(u"~bb")->state, 1) << "the window went away from under the cursor";
  PlaceCursor(middle);
  EXPECT_EQ(Find(u"~bb")->state, 2);
}

TEST_F(RealWindow, PutsTheCursorOnWhatGetsTheFocus) {
  for (const String name : {u"~bb", u"~bc", u"~ba"}) {
    PlaceCursor({3, 3});
    EXPECT_TRUE(gui->FocusNext());
    const base::Point middle = ProjectMiddle(*Find(name));
    EXPECT_NEAR(Cursor().x, middle.x, 1) << Narrow(name);
    EXPECT_NEAR(Cursor().y, middle.y, 1) << Narrow(name);
    Send(message::kMouseMove);
    Frame();
    EXPECT_EQ(Find(name)->state, 2) << Narrow(name);
  }
}

}  // namespace
}  // namespace qen::test
