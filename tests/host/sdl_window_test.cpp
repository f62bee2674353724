#include "host/window/sdl_window.h"

#include <SDL_events.h>
#include <SDL_keyboard.h>
#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "host/window/sdl_ime.h"

namespace qen::host {
namespace {

class SdlWindowTest : public ::testing::Test {
 protected:
  std::vector<InputEvent> Drain() {
    std::vector<InputEvent> events;
    while (const std::optional<InputEvent> event = window.NextEvent()) events.push_back(*event);
    return events;
  }

  static void Push(SDL_Event event) { ASSERT_EQ(SDL_PushEvent(&event), 1); }

  static SDL_Event Motion(std::int32_t x, std::int32_t y) {
    SDL_Event event{};
    event.type = SDL_MOUSEMOTION;
    event.motion.x = x;
    event.motion.y = y;
    return event;
  }

  static SDL_Event Text(std::uint32_t type, const char* utf8) {
    SDL_Event event{};
    event.type = type;
    std::strncpy(type == SDL_TEXTINPUT ? event.text.text : event.edit.text, utf8, sizeof event.text.text - 1);
    return event;
  }

  SdlWindow window{{.title = "test", .width = 320, .height = 200, .offscreen = true}};
};

TEST_F(SdlWindowTest, HasTheSizeAskedForAndIsResizedWithAnEvent) {
  EXPECT_EQ(window.ClientSize().x, 320);
  EXPECT_EQ(window.ClientSize().y, 200);
  Drain();
  window.Resize(3840, 2160);
  EXPECT_EQ(window.ClientSize().x, 3840);
  EXPECT_EQ(window.ClientSize().y, 2160);
  const std::vector<InputEvent> events = Drain();
  ASSERT_EQ(events.size(), 1U);
  EXPECT_EQ(events[0].kind, InputKind::Resize);
  window.Resize(0, 10);
  EXPECT_EQ(window.ClientSize().x, 3840);
}

TEST_F(SdlWindowTest, TheCursorStaysWhereItIsPut) {
  window.SetCursor({12, 34});
  Drain();
  EXPECT_EQ(window.Cursor().x, 12);
  EXPECT_EQ(window.Cursor().y, 34);
  window.Resize(100, 100);
  Drain();
  EXPECT_EQ(window.Cursor().x, 12);
}

TEST_F(SdlWindowTest, TheCursorIsThatOfTheEventTakenLast) {
  Drain();
  Push(Motion(10, 11));
  Push(Motion(20, 21));
  ASSERT_TRUE(window.NextEvent().has_value());
  EXPECT_EQ(window.Cursor().x, 10);
  ASSERT_TRUE(window.NextEvent().has_value());
  EXPECT_EQ(window.Cursor().x, 20);
  EXPECT_FALSE(window.NextEvent().has_value());
}

TEST_F(SdlWindowTest, TheInputMethodComposesWhileItIsEnabled) {
  SdlIme ime(window);
  EXPECT_EQ(SDL_IsTextInputActive(), SDL_FALSE);
  ime.Enable(true);
  EXPECT_EQ(SDL_IsTextInputActive(), SDL_TRUE);
  Push(Text(SDL_TEXTEDITING, "ab"));
  Drain();
  EXPECT_EQ(ime.Composition(), u"ab");
  ime.Enable(false);
  EXPECT_EQ(SDL_IsTextInputActive(), SDL_FALSE);
  EXPECT_EQ(ime.Composition(), u"");
}

TEST(SdlWindowsTest, OneCanFollowAnother) {
  for (const std::int32_t size : {64, 65, 66}) {
    SdlWindow window({.title = "test", .width = size, .height = size, .offscreen = true});
    EXPECT_EQ(window.ClientSize().x, size);
    window.Swap();
  }
}

}  // namespace
}  // namespace qen::host
