#include "host/window/input_translator.h"

#include <SDL_keycode.h>

#include <cmath>

#include "base/utf.h"

namespace qen::host {
namespace {

constexpr std::int32_t kNotch = 120;
constexpr std::int32_t kLastButton = 3;

// 0 for buttons that mean nothing here.
std::int32_t ButtonNumber(std::uint8_t sdlButton) {
  switch (sdlButton) {
    case SDL_BUTTON_LEFT:
      return 1;
    case SDL_BUTTON_RIGHT:
      return 2;
    case SDL_BUTTON_MIDDLE:
      return 3;
    default:
      return 0;
  }
}

// The code of a key that edits or navigates; 0 for others.
std::int32_t EditCode(SDL_Keycode key) {
  switch (key) {
    case SDLK_BACKSPACE:
      return 8;
    case SDLK_RETURN:
    case SDLK_KP_ENTER:
      return 13;
    case SDLK_UP:
      return 38;
    case SDLK_DOWN:
      return 40;
    default:
      return 0;
  }
}

bool MakesText(const SDL_Keysym& key) {
  const bool printable = key.sym >= SDLK_SPACE && (key.sym & SDLK_SCANCODE_MASK) == 0 && key.sym != SDLK_DELETE;
  return printable && (key.mod & (KMOD_CTRL | KMOD_ALT | KMOD_GUI)) == 0;
}

}  // namespace

void InputTranslator::Add(Events& out, InputKind kind, std::int32_t value, std::uint16_t modifiers) const {
  out.push_back({kind, value, modifiers, cursor_});
}

void InputTranslator::MoveAway(Events& out) {
  cursor_ = kAway;
  Add(out, InputKind::MouseMove);
}

void InputTranslator::ReleaseButtons(Events& out) {
  if (held_ == 0) return;
  MoveAway(out);
  for (std::int32_t button = 1; button <= kLastButton; ++button) {
    if ((held_ & (1U << button)) != 0) Add(out, InputKind::ButtonUp, button);
  }
  held_ = 0;
}

void InputTranslator::OnMotion(const SDL_MouseMotionEvent& event, Events& out) {
  cursor_ = {static_cast<std::int32_t>(std::floor(static_cast<float>(event.x) * scale_)),
             static_cast<std::int32_t>(std::floor(static_cast<float>(event.y) * scale_))};
  Add(out, InputKind::MouseMove);
}

void InputTranslator::OnButton(const SDL_MouseButtonEvent& event, Events& out) {
  const std::int32_t button = ButtonNumber(event.button);
  const std::uint32_t bit = 1U << button;
  const bool down = event.state == SDL_PRESSED;
  if (button == 0 || down == ((held_ & bit) != 0)) return;
  held_ ^= bit;
  Add(out, down ? InputKind::ButtonDown : InputKind::ButtonUp, button);
}

void InputTranslator::OnWheel(const SDL_MouseWheelEvent& event, Events& out) {
  notches_ -= event.preciseY;
  for (; notches_ >= 1.0F; notches_ -= 1.0F) Add(out, InputKind::Wheel, kNotch);
  for (; notches_ <= -1.0F; notches_ += 1.0F) Add(out, InputKind::Wheel, -kNotch);
}

void InputTranslator::OnKeyDown(const SDL_Keysym& key, Events& out) {
  // While text is composed, the keys belong to the input method.
  if (!composition_.empty()) return;
  const std::int32_t code = EditCode(key.sym);
  const bool altEnter = code == 13 && (key.mod & KMOD_ALT) != 0;
  if (code != 0 && !altEnter) {
    Add(out, InputKind::Key, code);
  } else if (!MakesText(key)) {
    Add(out, InputKind::Special, key.sym, key.mod);
  }
}

void InputTranslator::OnText(const char* utf8, Events& out) {
  composition_.clear();
  for (const Char unit : base::ToUtf16(utf8)) Add(out, InputKind::Text, unit);
}

void InputTranslator::OnWindow(const SDL_WindowEvent& event, Events& out) {
  switch (event.event) {
    case SDL_WINDOWEVENT_SIZE_CHANGED:
      Add(out, InputKind::Resize);
      break;
    case SDL_WINDOWEVENT_EXPOSED:
      Add(out, InputKind::Exposed);
      break;
    case SDL_WINDOWEVENT_LEAVE:
      if (held_ == 0) MoveAway(out);
      break;
    case SDL_WINDOWEVENT_FOCUS_LOST:
      ReleaseButtons(out);
      composition_.clear();
      Add(out, InputKind::FocusLost);
      break;
    default:
      break;
  }
}

void InputTranslator::Translate(const SDL_Event& event, std::vector<InputEvent>& out) {
  switch (event.type) {
    case SDL_MOUSEMOTION:
      OnMotion(event.motion, out);
      break;
    case SDL_MOUSEBUTTONDOWN:
    case SDL_MOUSEBUTTONUP:
      OnButton(event.button, out);
      break;
    case SDL_MOUSEWHEEL:
      OnWheel(event.wheel, out);
      break;
    case SDL_KEYDOWN:
      OnKeyDown(event.key.keysym, out);
      break;
    case SDL_TEXTINPUT:
      OnText(event.text.text, out);
      break;
    case SDL_TEXTEDITING:
      composition_ = base::ToUtf16(event.edit.text);
      break;
    case SDL_TEXTEDITING_EXT:
      composition_ = base::ToUtf16(event.editExt.text);
      break;
    case SDL_WINDOWEVENT:
      OnWindow(event.window, out);
      break;
    case SDL_QUIT:
      Add(out, InputKind::Quit);
      break;
    default:
      break;
  }
}

}  // namespace qen::host
