#include "host/window/input_translator.h"

#include <SDL_keycode.h>
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "base/utf.h"

namespace qen::host {
namespace {

SDL_Event Move(std::int32_t x, std::int32_t y) {
  SDL_Event event{};
  event.motion.type = SDL_MOUSEMOTION;
  event.motion.x = x;
  event.motion.y = y;
  return event;
}
SDL_Event Button(bool down, std::uint8_t button) {
  SDL_Event event{};
  event.button.type = down ? SDL_MOUSEBUTTONDOWN : SDL_MOUSEBUTTONUP;
  event.button.state = down ? SDL_PRESSED : SDL_RELEASED;
  event.button.button = button;
  return event;
}
SDL_Event Wheel(float y) {
  SDL_Event event{};
  event.wheel.type = SDL_MOUSEWHEEL;
  event.wheel.preciseY = y;
  return event;
}
SDL_Event Key(SDL_Keycode key, std::uint16_t modifiers = KMOD_NONE) {
  SDL_Event event{};
  event.key.type = SDL_KEYDOWN;
  event.key.keysym.sym = key;
  event.key.keysym.mod = modifiers;
  return event;
}
SDL_Event Typed(std::uint32_t type, const char* utf8) {
  SDL_Event event{};
  event.type = type;
  std::strncpy(type == SDL_TEXTINPUT ? event.text.text : event.edit.text, utf8, sizeof event.text.text - 1);
  return event;
}
SDL_Event Window(std::uint32_t what) {
  SDL_Event event{};
  event.window.type = SDL_WINDOWEVENT;
  event.window.event = static_cast<std::uint8_t>(what);
  return event;
}

// Special keys have the codes of SDL.
std::string Told(const std::vector<InputEvent>& events) {
  constexpr const char* kKinds[] = {"move",    "down",   "up",      "wheel", "key", "text",
                                    "special", "resize", "exposed", "lost",  "quit"};
  std::string text;
  for (const InputEvent& event : events) {
    text += (text.empty() ? "" : ", ") + std::string(kKinds[static_cast<std::size_t>(event.kind)]);
    if (event.value != 0) text += ' ' + std::to_string(event.value);
    if (event.modifiers != 0) text += " with " + std::to_string(event.modifiers);
    if (event.kind == InputKind::MouseMove || event.kind == InputKind::ButtonUp) {
      text += event.cursor.x == kAway.x
                  ? " away"
                  : " at " + std::to_string(event.cursor.x) + ' ' + std::to_string(event.cursor.y);
    }
  }
  return text;
}

TEST(InputTranslatorTest, TellsWhatTheEventsMean) {
  const SDL_Event press = Button(true, SDL_BUTTON_LEFT);
  const SDL_Event release = Button(false, SDL_BUTTON_LEFT);
  const SDL_Event pressRight = Button(true, SDL_BUTTON_RIGHT);
  const SDL_Event releaseMiddle = Button(false, SDL_BUTTON_MIDDLE);
  const SDL_Event leave = Window(SDL_WINDOWEVENT_LEAVE);
  const SDL_Event loseFocus = Window(SDL_WINDOWEVENT_FOCUS_LOST);
  const SDL_Event compose = Typed(SDL_TEXTEDITING, "にほ");
  const struct {
    std::vector<SDL_Event> events;
    const char* told;
    const char* composition = "";
  } steps[] = {
      // Every press has one release.
      {{Move(10, -3), press, press, pressRight, Button(true, SDL_BUTTON_X1)}, "move at 15 -5, down 1, down 2"},
      {{release, release, Button(false, SDL_BUTTON_RIGHT), releaseMiddle}, "up 1 at 15 -5, up 2 at 15 -5"},
      // The cursor leaves the window unless it drags.
      {{press, leave, Move(-50, 6), release, leave}, "down 1, move at -75 9, up 1 at -75 9, move away"},
      // Without the focus buttons come up away from everything, and once.
      {{Move(4, 4), press, Button(true, SDL_BUTTON_MIDDLE)}, "move at 6 6, down 1, down 3"},
      {{loseFocus, release, loseFocus}, "move away, up 1 away, up 3 away, lost, lost"},
      // Rolling towards the user is positive, notch by notch.
      {{Wheel(-1), Wheel(2)}, "wheel 120, wheel -120, wheel -120"},
      {{Wheel(-0.75F)}, ""},
      {{Wheel(-0.5F)}, "wheel 120"},
      {{Wheel(-0.5F), Wheel(0.5F)}, ""},
      {{Wheel(-0.75F)}, "wheel 120"},
      // Keys that edit have their codes, those that make text wait for it, the others are for the program.
      {{Key(SDLK_BACKSPACE), Key(SDLK_RETURN), Key(SDLK_KP_ENTER)}, "key 8, key 13, key 13"},
      {{Key(SDLK_UP), Key(SDLK_DOWN)}, "key 38, key 40"},
      {{Key(SDLK_a), Key(SDLK_SPACE), Key(SDLK_EXCLAIM), Key(SDLK_z, KMOD_LSHIFT)}, ""},
      {{Key(SDLK_ESCAPE), Key(SDLK_DELETE), Key(SDLK_F11)}, "special 27, special 127, special 1073741892"},
      {{Key(SDLK_TAB, KMOD_LSHIFT), Key(SDLK_RETURN, KMOD_LALT)}, "special 9 with 1, special 13 with 256"},
      {{Key(SDLK_v, KMOD_LCTRL)}, "special 118 with 64"},
      {{Typed(SDL_TEXTINPUT, "aé\xF0\x9D\x84\x9E")}, "text 97, text 233, text 55348, text 56606"},
      // Keys belong to the input method while it composes.
      {{compose, Key(SDLK_BACKSPACE), Key(SDLK_RETURN)}, "", "にほ"},
      {{Typed(SDL_TEXTINPUT, "日"), Key(SDLK_BACKSPACE)}, "text 26085, key 8"},
      {{compose, loseFocus}, "lost"},
      {{Window(SDL_WINDOWEVENT_SIZE_CHANGED), Window(SDL_WINDOWEVENT_EXPOSED), {.type = SDL_QUIT}},
       "resize, exposed, quit"},
  };
  InputTranslator input;
  input.SetPixelScale(1.5F);
  for (const auto& step : steps) {
    std::vector<InputEvent> told;
    for (const SDL_Event& event : step.events) input.Translate(event, told);
    EXPECT_EQ(Told(told), step.told);
    EXPECT_EQ(base::ToUtf8(input.GetComposition()), step.composition) << step.told;
  }
}

}  // namespace
}  // namespace qen::host
