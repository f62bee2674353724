#include "host/app/window_loop.h"

#include <SDL.h>

#include <array>
#include <chrono>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <string>
#include <thread>

#include "engine/messages.h"
#include "host/app/page_saver.h"

namespace qen::host {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds kShortestFrame{4};  // where the display does not set the pace
constexpr std::chrono::milliseconds kStillFrame{33};    // where the picture stays as it is
constexpr std::chrono::milliseconds kHiddenFrame{100};
constexpr std::int32_t kMainButton = 1;

constexpr StringView kKeys =
    u"F1  these keys\n"
    u"F4  hides what is wrong with the files\n"
    u"F5  loads everything anew\n"
    u"F12  writes a picture\n"
    u"Tab, Right  the next widget\n"
    u"Shift+Tab, Left  the widget before\n"
    u"Ctrl+S  saves the active page\n"
    u"Alt+Enter  full screen";

// The GUI knows the main button and others.
std::uint32_t ToButton(std::int32_t button) { return button == kMainButton ? 1 : 2; }

std::uintptr_t Pack(base::Point point) {
  return static_cast<std::uint16_t>(point.x) | static_cast<std::uintptr_t>(static_cast<std::uint16_t>(point.y)) << 16U;
}

bool IsHidden() {
  SDL_Window* window = SDL_GL_GetCurrentWindow();
  return window != nullptr && (SDL_GetWindowFlags(window) & (SDL_WINDOW_MINIMIZED | SDL_WINDOW_HIDDEN)) != 0;
}

std::filesystem::path NextPictureName() {
  int number = 1;
  std::filesystem::path file;
  do {
    file = "guihost_" + std::to_string(number++) + ".png";
  } while (std::filesystem::exists(file));
  return file;
}

class WindowLoop {
 public:
  WindowLoop(Stage& stage, Script& game, FileWatch* watch) : stage_(stage), game_(game), watch_(watch) {}

  void Run(std::optional<std::uint32_t> frames) {
    for (std::uint32_t frame = 0; !closed_ && !stage_.HasQuit() && (!frames || frame < *frames); ++frame) {
      const Clock::time_point start = Clock::now();
      TakeInput();
      if (watch_ != nullptr && watch_->HasChanged()) Reload();
      stage_.Update(Stage::kStep);
      if (const auto failure = game_.TakeFailure()) std::fprintf(stderr, "guihost: %s\n", failure->c_str());
      stage_.Draw();
      const bool isStill = !stage_.Show();
      if (pictureWanted_) TakePicture();
      std::this_thread::sleep_until(start + (IsHidden() ? kHiddenFrame : kShortestFrame));
      if (isStill) WaitForInput(start + kStillFrame);
    }
  }

 private:
  void WaitForInput(Clock::time_point end) {
    const auto time = std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now());
    if (time.count() > 0) stage_.Window().WaitForEvent(static_cast<std::int32_t>(time.count()));
  }

  // Ends after a button, so that each press and each release has a frame of its own and none is lost in a slow one.
  void TakeInput() {
    while (const auto event = stage_.Window().NextEvent()) {
      Handle(*event);
      if (event->kind == InputKind::ButtonDown || event->kind == InputKind::ButtonUp) return;
    }
  }

  void Handle(const InputEvent& event) {
    switch (event.kind) {
      case InputKind::MouseMove:
        return stage_.Send(message::kMouseMove, 0, Pack(event.cursor));
      case InputKind::ButtonDown:
        return stage_.Send(message::kButtonDown, ToButton(event.value), Pack(event.cursor));
      case InputKind::ButtonUp:
        return stage_.Send(message::kButtonUp, ToButton(event.value), Pack(event.cursor));
      case InputKind::Wheel:
        return stage_.SendWheel(event.value);
      case InputKind::Key:
        return stage_.SendKey(static_cast<Char>(event.value));
      case InputKind::Text:
        return stage_.SendText(String(1, static_cast<Char>(event.value)));
      case InputKind::Special:
        return HandleSpecial(event);
      case InputKind::Resize:
        return stage_.Resize();
      case InputKind::Exposed:
        return stage_.ShowAgain();
      case InputKind::FocusLost:
        return;
      case InputKind::Quit:
        closed_ = true;
    }
  }

  void HandleSpecial(const InputEvent& event) {
    struct Shortcut {
      std::int32_t key;
      int modifiers;  // one of these is held; 0: any or none
      void (WindowLoop::*act)();
    };
    static constexpr std::array<Shortcut, 10> kShortcuts{{
        {SDLK_F1, 0, &WindowLoop::SwitchKeys},
        {SDLK_F4, 0, &WindowLoop::HideProblems},
        {SDLK_F5, 0, &WindowLoop::Reload},
        {SDLK_RETURN, KMOD_ALT, &WindowLoop::ToggleFullscreen},
        {SDLK_F12, 0, &WindowLoop::WantPicture},
        {SDLK_s, KMOD_CTRL, &WindowLoop::SaveActivePage},
        {SDLK_TAB, KMOD_SHIFT, &WindowLoop::FocusPrev},
        {SDLK_TAB, 0, &WindowLoop::FocusNext},
        {SDLK_LEFT, 0, &WindowLoop::FocusPrev},
        {SDLK_RIGHT, 0, &WindowLoop::FocusNext},
    }};
    for (const Shortcut& shortcut : kShortcuts) {
      if (shortcut.key != event.value) continue;
      if (shortcut.modifiers == 0 || (event.modifiers & shortcut.modifiers) != 0) return (this->*shortcut.act)();
    }
  }

  void SwitchKeys() { stage_.ShowKeys(stage_.ShowsKeys() ? StringView() : kKeys); }

  void Reload() {
    Report([this] {
      stage_.Reload();
      game_.RunGame();
      return std::string("loaded anew");
    });
  }

  void HideProblems() { stage_.HideProblems(); }
  void ToggleFullscreen() { stage_.Window().ToggleFullscreen(); }
  void WantPicture() { pictureWanted_ = true; }
  void FocusNext() { stage_.Gui().FocusNext(); }
  void FocusPrev() { stage_.Gui().FocusPrev(); }

  void TakePicture() {
    pictureWanted_ = false;
    Report([this] {
      const std::filesystem::path file = NextPictureName();
      stage_.WritePicture(file);
      return file.string();
    });
  }

  // The one in front, when several take input.
  void SaveActivePage() {
    const std::vector<std::uint32_t>& active = stage_.Gui().GetActivePages();
    if (!active.empty()) Report([&] { return SavePageInPlace(stage_.Gui(), active.back()); });
  }

  // Prints what the work gives. That it fails is no reason to end.
  template <class Work>
  static void Report(const Work& work) {
    try {
      std::printf("%s\n", work().c_str());
      std::fflush(stdout);
    } catch (const std::exception& problem) {
      std::fprintf(stderr, "guihost: %s\n", problem.what());
    }
  }

  Stage& stage_;
  Script& game_;
  FileWatch* watch_;
  bool closed_ = false;
  bool pictureWanted_ = false;
};

}  // namespace

void RunWindowLoop(Stage& stage, Script& game, std::optional<std::uint32_t> frames, FileWatch* watch) {
  WindowLoop(stage, game, watch).Run(frames);
}

}  // namespace qen::host
