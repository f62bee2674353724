#include "host/window/input_translator.h"

#include <SDL_keycode.h>
#include <gtest/gtest.h>

#include <cstring>
#include <ostream>

namespace qen::host {

std::ostream& operator<<(std::ostream& out, const InputEvent& event) {
  return out << static_cast<int>(event.kind) << '(' << event.value << ") at " << event.cursor.x << ','
             << event.cursor.y;
}

namespace {

struct Seen {
  InputKind kind = InputKind::MouseMove;
  std::int32_t value = 0;
  friend bool operator==(const Seen&, const Seen&) = default;
};

class InputTranslatorTest : public ::testing::Test {
 protected:
  std::vector<Seen> Take() {
    std::vector<Seen> seen;
    for (const InputEvent& event : events) seen.push_back({event.kind, event.value});
    events.clear();
    return seen;
  }

  template <class Fill>
  void Give(std::uint32_t type, Fill fill) {
    SDL_Event event{};
    event.type = type;
    fill(event);
    input.Translate(event, events);
  }
  void Move(std::int32_t x, std::int32_t y) {
    Give(SDL_MOUSEMOTION, [&](SDL_Event& event) {
      event.motion.x = x;
      event.motion.y = y;
    });
  }
  void Button(bool down, std::uint8_t button = SDL_BUTTON_LEFT) {
    Give(down ? SDL_MOUSEBUTTONDOWN : SDL_MOUSEBUTTONUP, [&](SDL_Event& event) {
      event.button.state = down ? SDL_PRESSED : SDL_RELEASED;
      event.button.button = button;
    });
  }
  void Wheel(float y) {
    Give(SDL_MOUSEWHEEL, [&](SDL_Event& event) { event.wheel.preciseY = y; });
  }
  void Press(SDL_Keycode key, std::uint16_t modifiers = KMOD_NONE) {
    Give(SDL_KEYDOWN, [&](SDL_Event& event) {
      event.key.keysym.sym = key;
      event.key.keysym.mod = modifiers;
    });
  }
  void Window(std::uint8_t what) {
    Give(SDL_WINDOWEVENT, [&](SDL_Event& event) { event.window.event = what; });
  }
  void Text(std::uint32_t type, const char* utf8) {
    Give(type, [&](SDL_Event& event) {
      std::strncpy(type == SDL_TEXTINPUT ? event.text.text : event.edit.text, utf8, sizeof event.text.text - 1);
    });
  }

  InputTranslator input;
  std::vector<InputEvent> events;
};

using Kind = InputKind;
using Expected = std::vector<Seen>;

TEST_F(InputTranslatorTest, TheCursorIsInPixels) {
  input.SetPixelScale(1.5F);
  Move(10, -3);
  EXPECT_EQ(events.at(0).kind, Kind::MouseMove);
  EXPECT_EQ(events.at(0).cursor.x, 15);
  EXPECT_EQ(events.at(0).cursor.y, -5);
}

TEST_F(InputTranslatorTest, EveryPressHasOneRelease) {
  Move(5, 6);
  Button(true);
  Button(true);
  Button(true, SDL_BUTTON_RIGHT);
  Button(true, SDL_BUTTON_X1);
  Button(false);
  Button(false);
  Button(false, SDL_BUTTON_RIGHT);
  Button(false, SDL_BUTTON_MIDDLE);
  EXPECT_EQ(Take(), (Expected{{Kind::MouseMove, 0},
                              {Kind::ButtonDown, 1},
                              {Kind::ButtonDown, 2},
                              {Kind::ButtonUp, 1},
                              {Kind::ButtonUp, 2}}));
}

TEST_F(InputTranslatorTest, LosingTheFocusReleasesButtonsAwayFromEverything) {
  Move(5, 6);
  Button(true);
  Button(true, SDL_BUTTON_RIGHT);
  events.clear();
  Window(SDL_WINDOWEVENT_FOCUS_LOST);
  for (const InputEvent& event : events) EXPECT_EQ(event.cursor.x, kAway.x);
  EXPECT_EQ(Take(), (Expected{{Kind::MouseMove, 0}, {Kind::ButtonUp, 1}, {Kind::ButtonUp, 2}, {Kind::FocusLost, 0}}));
  Button(false);
  EXPECT_EQ(Take(), Expected{}) << "that release was told already";

  Window(SDL_WINDOWEVENT_FOCUS_LOST);
  EXPECT_EQ(Take(), (Expected{{Kind::FocusLost, 0}}));
}

TEST_F(InputTranslatorTest, LeavingTheWindowMovesTheCursorAwayUnlessItDrags) {
  Move(5, 6);
  Button(true);
  events.clear();
  Window(SDL_WINDOWEVENT_LEAVE);
  EXPECT_EQ(Take(), Expected{});
  Move(-50, 6);
  EXPECT_EQ(events.at(0).cursor.x, -50);
  Button(false);
  events.clear();
  Window(SDL_WINDOWEVENT_LEAVE);
  ASSERT_EQ(events.size(), 1U);
  EXPECT_EQ(events[0].kind, Kind::MouseMove);
  EXPECT_EQ(events[0].cursor.x, kAway.x);
}

TEST_F(InputTranslatorTest, RollingTowardsTheUserIsPositiveNotchByNotch) {
  Wheel(-1.0F);
  Wheel(2.0F);
  EXPECT_EQ(Take(), (Expected{{Kind::Wheel, 120}, {Kind::Wheel, -120}, {Kind::Wheel, -120}}));
  for (int i = 0; i < 8; ++i) Wheel(-0.25F);
  EXPECT_EQ(Take(), (Expected{{Kind::Wheel, 120}, {Kind::Wheel, 120}}));
  Wheel(-0.5F);
  Wheel(0.5F);
  EXPECT_EQ(Take(), Expected{});
}

TEST_F(InputTranslatorTest, EditingKeysHaveTheirCodes) {
  for (const SDL_Keycode key : {SDLK_BACKSPACE, SDLK_RETURN, SDLK_KP_ENTER, SDLK_UP, SDLK_DOWN}) Press(key);
  EXPECT_EQ(Take(), (Expected{{Kind::Key, 8}, {Kind::Key, 13}, {Kind::Key, 13}, {Kind::Key, 38}, {Kind::Key, 40}}));
}

TEST_F(InputTranslatorTest, KeysThatMakeTextWaitForTheText) {
  Press(SDLK_a);
  Press(SDLK_SPACE);
  Press(SDLK_EXCLAIM);
  EXPECT_EQ(Take(), Expected{});
  Text(SDL_TEXTINPUT, "aé\xF0\x9D\x84\x9E");  // the last one outside the first plane
  EXPECT_EQ(Take(), (Expected{{Kind::Text, 'a'}, {Kind::Text, 0xE9}, {Kind::Text, 0xD834}, {Kind::Text, 0xDD1E}}));
}

TEST_F(InputTranslatorTest, OtherKeysAreForTheProgram) {
  Press(SDLK_F11);
  Press(SDLK_ESCAPE);
  Press(SDLK_TAB, KMOD_LSHIFT);
  Press(SDLK_DELETE);
  Press(SDLK_RETURN, KMOD_LALT);
  Press(SDLK_v, KMOD_LCTRL);
  EXPECT_EQ(events.at(2).modifiers, KMOD_LSHIFT);
  EXPECT_EQ(Take(), (Expected{{Kind::Special, SDLK_F11},
                              {Kind::Special, SDLK_ESCAPE},
                              {Kind::Special, SDLK_TAB},
                              {Kind::Special, SDLK_DELETE},
                              {Kind::Special, SDLK_RETURN},
                              {Kind::Special, SDLK_v}}));
}

TEST_F(InputTranslatorTest, KeysBelongToTheInputMethodWhileItComposes) {
  Text(SDL_TEXTEDITING, "にほ");
  EXPECT_EQ(input.GetComposition(), u"にほ");
  Press(SDLK_BACKSPACE);
  Press(SDLK_RETURN);
  EXPECT_EQ(Take(), Expected{});
  Text(SDL_TEXTINPUT, "日");
  EXPECT_EQ(input.GetComposition(), u"");
  EXPECT_EQ(Take(), (Expected{{Kind::Text, 0x65E5}}));
  Press(SDLK_BACKSPACE);
  EXPECT_EQ(Take(), (Expected{{Kind::Key, 8}}));

  Text(SDL_TEXTEDITING, "x");
  Window(SDL_WINDOWEVENT_FOCUS_LOST);
  EXPECT_EQ(input.GetComposition(), u"");
}

TEST_F(InputTranslatorTest, TheWindowTellsOfSizesAndOfItsEnd) {
  Window(SDL_WINDOWEVENT_SIZE_CHANGED);
  Give(SDL_QUIT, [](SDL_Event&) {});
  Window(SDL_WINDOWEVENT_EXPOSED);
  EXPECT_EQ(Take(), (Expected{{Kind::Resize, 0}, {Kind::Quit, 0}}));
}

}  // namespace
}  // namespace qen::host
