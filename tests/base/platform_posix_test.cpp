// Where the system has no such calls, the window of the engine answers.
#include <gtest/gtest.h>

#include "base/recording/recording_engine.h"
#include "engine/platform.h"

namespace qen::platform {
namespace {

TEST(PlatformWindow, IsThatOfTheEngine) {
  POINT point{130, 60};
  RECT rect;
  const auto ask = [&] {
    return std::vector<bool>{SetCursorPos(point.x, point.y), GetCursorPos(&point), ScreenToClient(nullptr, &point),
                             ClientToScreen(nullptr, &point), GetClientRect(nullptr, &rect)};
  };
  EXPECT_EQ(ask(), std::vector<bool>(5, false));
  base::RecordingEngine engine;
  EXPECT_EQ(ask(), std::vector<bool>(5, true));
  EXPECT_TRUE(engine.window.cursor.x == 130 && engine.window.cursor.y == 60);
  EXPECT_TRUE(point.x == 130 && point.y == 60) << "on the screen, in the window, and back";
  EXPECT_TRUE(ScreenToClient(nullptr, &point) && point.x == 30 && point.y == 10);
  EXPECT_TRUE(rect.right == 800 && rect.bottom == 600);
  EXPECT_FALSE(GetCursorPos(nullptr));
  for (const double seconds : {1.5, 4294967.296}) {  // 32 bits of milliseconds
    engine.clock.Advance(seconds);
    EXPECT_EQ(timeGetTime(), 1500U);
  }
}

}  // namespace
}  // namespace qen::platform
