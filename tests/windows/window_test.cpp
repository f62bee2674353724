// The module on a real window, with the system's own cursor.
#include "engine/platform.h"
#include "tests/module/gui_fixture.h"

namespace qen::test {
namespace {

// Of the size that the recording engine takes for its own, with a frame round its client area.
class RealWindow : public GuiTest {
 protected:
  RealWindow() {
    module.UseWindow(nullptr);
    RECT outer{0, 0, engine.window.size.x, engine.window.size.y};
    AdjustWindowRect(&outer, WS_OVERLAPPEDWINDOW, 0);
    window_ = CreateWindowExW(0, L"STATIC", L"Men\u00FC", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 60, 40,
                              outer.right - outer.left, outer.bottom - outer.top, nullptr, nullptr, nullptr, nullptr);
    System::SetMainWindowHandle(window_);
    AddButtonPage(u"row", {u"a", u"b", u"c"});
    OpenPage(u"row.txt");
    ShowOnly(0);
  }
  ~RealWindow() override {
    System::SetMainWindowHandle(nullptr);
    DestroyWindow(window_);
  }

  void PlaceCursor(base::Point client) {
    POINT point{client.x, client.y};
    ASSERT_TRUE(ClientToScreen(window_, &point) && SetCursorPos(point.x, point.y)) << "no screen";
  }

  // The buttons that the cursor is on.
  Words Hovered() {
    Send(message::kMouseMove);
    Frame();
    Words names;
    for (const ICGUIObject* widget : gui->GetPageItems(0)) {
      if (widget->state == 2) names.push_back(widget->info->name);
    }
    return names;
  }

  HWND window_ = nullptr;
};

TEST_F(RealWindow, FindsItsCursorWhereverItIs) {
  for (const int x : {260, 60}) {
    SetWindowPos(window_, nullptr, x, 2 * x, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    EXPECT_EQ(Hovered(), Words()) << "the window went away from under the cursor";
    for (const String name : {u"~bc", u"~ba", u"~bb"}) {
      const base::Point middle = ProjectMiddle(*Find(name));
      PlaceCursor({middle.x, middle.y + 40});
      EXPECT_EQ(Hovered(), Words());
      PlaceCursor(middle);
      EXPECT_EQ(Hovered(), Words{name});
    }
  }
}

}  // namespace
}  // namespace qen::test
