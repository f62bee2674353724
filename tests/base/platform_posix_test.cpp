// Where the system has no such calls, the window of the engine answers.
#include <gtest/gtest.h>

#include "base/recording/recording_engine.h"
#include "engine/platform.h"

namespace qen::platform {
namespace {

TEST(PlatformWindowTest, AsksTheWindow) {
  POINT point{5, 6};
  RECT rect;
  EXPECT_FALSE(GetCursorPos(&point));
  EXPECT_FALSE(SetCursorPos(1, 2));
  EXPECT_FALSE(ScreenToClient(nullptr, &point));
  EXPECT_FALSE(ClientToScreen(nullptr, &point));
  EXPECT_FALSE(GetClientRect(nullptr, &rect));
  EXPECT_EQ(point.x, 5) << "unchanged";

  base::RecordingEngine engine;
  EXPECT_TRUE(SetCursorPos(130, 60));
  EXPECT_TRUE(GetCursorPos(&point));
  EXPECT_EQ(point.x, 130);
  EXPECT_TRUE(ScreenToClient(nullptr, &point));
  EXPECT_EQ(point.x, 30);
  EXPECT_EQ(point.y, 10);
  EXPECT_TRUE(ClientToScreen(nullptr, &point));
  EXPECT_EQ(point.y, 60);
  EXPECT_TRUE(GetClientRect(nullptr, &rect));
  EXPECT_EQ(rect.right, 800);
  EXPECT_EQ(rect.bottom, 600);
  EXPECT_FALSE(GetCursorPos(nullptr));

  engine.clock.Advance(1.5);
  EXPECT_EQ(timeGetTime(), 1500U);
  engine.clock.Advance(4294967.296);  // 32 bits of milliseconds
  EXPECT_EQ(timeGetTime(), 1500U);
}

}  // namespace
}  // namespace qen::platform
