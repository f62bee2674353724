#include "host/app/display.h"

#include <SDL.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string_view>

namespace qen::host {
namespace {

// SDL's drivers that work without a display, which it falls back to.
constexpr std::array<std::string_view, 3> kBlindDrivers{"offscreen", "dummy", "evdev"};

// Asked first where displays are named by the environment: looking for them is slow and prints messages.
bool MayHaveDisplay() {
#if defined(__unix__) && !defined(__APPLE__)
  const auto isSet = [](const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr && *value != '\0';
  };
  return isSet("DISPLAY") || isSet("WAYLAND_DISPLAY");
#else
  return true;
#endif
}

}  // namespace

bool HasDisplay() {
  if (!MayHaveDisplay() || SDL_InitSubSystem(SDL_INIT_VIDEO) != 0) return false;
  const char* driver = SDL_GetCurrentVideoDriver();
  const bool sees = driver != nullptr && std::ranges::find(kBlindDrivers, driver) == kBlindDrivers.end();
  SDL_QuitSubSystem(SDL_INIT_VIDEO);
  return sees;
}

}  // namespace qen::host
