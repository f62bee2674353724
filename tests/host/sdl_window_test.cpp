#include "host/window/sdl_window.h"

#include <SDL_events.h>
#include <SDL_keyboard.h>
#include <gtest/gtest.h>

#include <string>

#include "host/window/sdl_ime.h"

namespace qen::host {
namespace {

std::string Text(base::Point point) { return std::to_string(point.x) + ',' + std::to_string(point.y); }

class SdlWindowTest : public ::testing::Test {
 protected:
  // The next event's kind and where the cursor is then; empty when there is none.
  std::string Take() {
    const std::optional<InputEvent> event = window.NextEvent();
    return event ? std::to_string(static_cast<int>(event->kind)) + " at " + Text(window.Cursor()) : "";
  }
  void Drain() {
    while (!Take().empty()) {
    }
  }

  SdlWindow window{{.title = "test", .width = 320, .height = 200, .offscreen = true}};
};

TEST_F(SdlWindowTest, TellsOfANewSizeAndTakesTheCursorAlongWithEvents) {
  Drain();
  EXPECT_EQ(Text(window.ClientSize()), "320,200");
  window.SetCursor({12, 34});
  window.Resize(3840, 2160);
  window.Resize(0, 10);
  EXPECT_EQ(Text(window.ClientSize()), "3840,2160");
  for (const std::int32_t x : {10, 20}) {
    SDL_Event event{.type = SDL_MOUSEMOTION};
    event.motion.x = x;
    ASSERT_EQ(SDL_PushEvent(&event), 1);
  }
  EXPECT_EQ(Text(window.Cursor()), "12,34");
  for (const char* event : {"7 at 12,34", "0 at 10,0", "0 at 20,0", ""}) EXPECT_EQ(Take(), event);
}

TEST_F(SdlWindowTest, TheInputMethodComposesWhileItIsEnabled) {
  SdlIme ime(window);
  ime.Enable(true);
  EXPECT_EQ(SDL_IsTextInputActive(), SDL_TRUE);
  SDL_Event event{.type = SDL_TEXTEDITING};
  event.edit.text[0] = 'a';
  ASSERT_EQ(SDL_PushEvent(&event), 1);
  Drain();
  EXPECT_EQ(ime.Composition(), u"a");
  ime.Enable(false);
  EXPECT_EQ(SDL_IsTextInputActive(), SDL_FALSE);
  EXPECT_EQ(ime.Composition(), u"");
}

}  // namespace
}  // namespace qen::host
