#include "host/window/sdl_window.h"

#include <SDL.h>

#include <algorithm>
#include <stdexcept>
#include <utility>
#include <vector>

#include "host/window/input_translator.h"

namespace qen::host {
namespace {

[[noreturn]] void Fail(const char* what) { throw std::runtime_error(std::string(what) + ": " + SDL_GetError()); }

// Once for the process: SDL and the driver stay until its end, since some drivers do not survive being unloaded, and
// none can be asked about its memory then.
void StartVideo(bool offscreen) {
  if (SDL_WasInit(SDL_INIT_VIDEO) != 0) return;
  if (offscreen) SDL_SetHintWithPriority(SDL_HINT_VIDEODRIVER, "offscreen", SDL_HINT_OVERRIDE);
  // A button that is held keeps the mouse, so that its release arrives from outside the window too.
  SDL_SetHint(SDL_HINT_MOUSE_AUTO_CAPTURE, "1");
  SDL_SetHint(SDL_HINT_IME_SUPPORT_EXTENDED_TEXT, "1");
  if (SDL_InitSubSystem(SDL_INIT_VIDEO) != 0) Fail("no display");
  if (SDL_GL_LoadLibrary(nullptr) != 0) Fail("no OpenGL");
}

struct DestroyWindow {
  void operator()(SDL_Window* window) const { SDL_DestroyWindow(window); }
};
using Window = std::unique_ptr<SDL_Window, DestroyWindow>;

struct DeleteContext {
  void operator()(void* context) const { SDL_GL_DeleteContext(context); }
};
using Context = std::unique_ptr<void, DeleteContext>;

Window MakeWindow(const WindowOptions& options) {
  StartVideo(options.offscreen);
  SDL_GL_SetAttribute(SDL_GL_CONTEXT_MAJOR_VERSION, 3);
  SDL_GL_SetAttribute(SDL_GL_CONTEXT_MINOR_VERSION, 3);
  SDL_GL_SetAttribute(SDL_GL_CONTEXT_PROFILE_MASK, SDL_GL_CONTEXT_PROFILE_CORE);
  SDL_GL_SetAttribute(SDL_GL_CONTEXT_FLAGS, options.debugContext ? SDL_GL_CONTEXT_DEBUG_FLAG : 0);
  SDL_GL_SetAttribute(SDL_GL_DOUBLEBUFFER, 1);
  SDL_GL_SetAttribute(SDL_GL_DEPTH_SIZE, 0);
  std::uint32_t flags = SDL_WINDOW_OPENGL | SDL_WINDOW_RESIZABLE | SDL_WINDOW_ALLOW_HIGHDPI;
  if (options.fullscreen && !options.offscreen) flags |= SDL_WINDOW_FULLSCREEN_DESKTOP;
  Window window(SDL_CreateWindow(options.title.c_str(), SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED,
                                 std::max(options.width, 1), std::max(options.height, 1), flags));
  if (window == nullptr) Fail("no window");
  return window;
}

Context MakeContext(SDL_Window* window, bool vsync) {
  Context context(SDL_GL_CreateContext(window));
  if (context == nullptr) Fail("no OpenGL 3.3");
  // Adaptive first: a late frame is shown at once instead of waiting for the next refresh.
  if (!vsync || SDL_GL_SetSwapInterval(-1) != 0) SDL_GL_SetSwapInterval(vsync ? 1 : 0);
  return context;
}

}  // namespace

struct SdlWindow::Parts {
  explicit Parts(const WindowOptions& options)
      : offscreen(options.offscreen),
        size{std::max(options.width, 1), std::max(options.height, 1)},
        window(MakeWindow(options)),
        context(MakeContext(window.get(), options.vsync && !options.offscreen)) {}

  base::Point DrawableSize() const {
    base::Point drawable;
    SDL_GL_GetDrawableSize(window.get(), &drawable.x, &drawable.y);
    return drawable;
  }

  // Pixels of a unit that SDL measures windows in.
  float PixelScale() const {
    int width = 0;
    SDL_GetWindowSize(window.get(), &width, nullptr);
    return offscreen || width <= 0 ? 1.0F : static_cast<float>(DrawableSize().x) / static_cast<float>(width);
  }

  bool offscreen;
  base::Point size;  // off screen
  base::Point cursor = kAway;
  Window window;
  Context context;
  InputTranslator input;
  std::vector<InputEvent> pending;
  std::size_t taken = 0;
};

SdlWindow::SdlWindow(const WindowOptions& options) : parts_(std::make_unique<Parts>(options)) { SDL_StopTextInput(); }

SdlWindow::~SdlWindow() = default;

base::Point SdlWindow::ClientSize() { return parts_->offscreen ? parts_->size : parts_->DrawableSize(); }

base::Point SdlWindow::ClientOrigin() {
  if (parts_->offscreen) return {};
  base::Point origin;
  SDL_GetWindowPosition(parts_->window.get(), &origin.x, &origin.y);
  const float scale = parts_->PixelScale();
  return {static_cast<std::int32_t>(static_cast<float>(origin.x) * scale),
          static_cast<std::int32_t>(static_cast<float>(origin.y) * scale)};
}

base::Point SdlWindow::Cursor() {
  const base::Point origin = ClientOrigin();
  return {origin.x + parts_->cursor.x, origin.y + parts_->cursor.y};
}

void SdlWindow::SetCursor(base::Point screen) {
  const base::Point origin = ClientOrigin();
  parts_->cursor = {screen.x - origin.x, screen.y - origin.y};
  parts_->input.SetCursor(parts_->cursor);
  if (parts_->offscreen) return;
  const float scale = parts_->PixelScale();
  SDL_WarpMouseInWindow(parts_->window.get(), static_cast<int>(static_cast<float>(parts_->cursor.x) / scale),
                        static_cast<int>(static_cast<float>(parts_->cursor.y) / scale));
}

std::optional<InputEvent> SdlWindow::NextEvent() {
  Parts& parts = *parts_;
  SDL_Event event;
  while (parts.taken == parts.pending.size()) {
    parts.pending.clear();
    parts.taken = 0;
    if (SDL_PollEvent(&event) == 0) return std::nullopt;
    parts.input.SetPixelScale(parts.PixelScale());
    parts.input.Translate(event, parts.pending);
    if (event.type == SDL_TEXTEDITING_EXT) SDL_free(event.editExt.text);
  }
  const InputEvent& next = parts.pending[parts.taken++];
  parts.cursor = next.cursor;
  return next;
}

void SdlWindow::WaitForEvent(std::int32_t milliseconds) {
  if (parts_->taken == parts_->pending.size()) SDL_WaitEventTimeout(nullptr, milliseconds);
}

void SdlWindow::SetTitle(const std::string& title) { SDL_SetWindowTitle(parts_->window.get(), title.c_str()); }

std::string SdlWindow::Title() const { return SDL_GetWindowTitle(parts_->window.get()); }

void SdlWindow::Swap() { SDL_GL_SwapWindow(parts_->window.get()); }

void SdlWindow::ToggleFullscreen() {
  if (parts_->offscreen) return;
  const bool full = (SDL_GetWindowFlags(parts_->window.get()) & SDL_WINDOW_FULLSCREEN_DESKTOP) != 0;
  SDL_SetWindowFullscreen(parts_->window.get(), full ? 0 : SDL_WINDOW_FULLSCREEN_DESKTOP);
}

void SdlWindow::Resize(std::int32_t width, std::int32_t height) {
  if (width <= 0 || height <= 0) return;
  if (!parts_->offscreen) {
    const float scale = parts_->PixelScale();
    SDL_SetWindowSize(parts_->window.get(), static_cast<int>(static_cast<float>(width) / scale),
                      static_cast<int>(static_cast<float>(height) / scale));
    return;
  }
  parts_->size = {width, height};
  parts_->pending.push_back({.kind = InputKind::Resize, .cursor = parts_->cursor});
}

void SdlWindow::EnableTextInput(bool enabled) {
  if (enabled) {
    SDL_StartTextInput();
  } else {
    SDL_StopTextInput();
    parts_->input.ClearComposition();
  }
}

void SdlWindow::SetTextArea(const Rect& client) {
  const float scale = parts_->PixelScale();
  const auto toUnits = [scale](int pixels) { return static_cast<int>(static_cast<float>(pixels) / scale); };
  const SDL_Rect area{toUnits(client.left), toUnits(client.top), toUnits(client.right - client.left),
                      toUnits(client.bottom - client.top)};
  SDL_SetTextInputRect(&area);
}

const String& SdlWindow::Composition() const { return parts_->input.GetComposition(); }

}  // namespace qen::host
