// Whole frames of this module's screen of buttons: window, renderer and fonts are guihost's.
#include <epoxy/gl.h>

#include "bench/button_page.h"
#include "bench/gl_calls.h"
#include "bench/screen_benchmarks.h"
#include "engine/messages.h"
#include "engine/msg_daemon.h"
#include "host/fonts/freetype_fonts.h"
#include "host/render/gl_renderer.h"
#include "host/window/sdl_window.h"

namespace qen::bench {
namespace {

void Send(std::uint32_t id, std::uintptr_t second = 0) { System::daemon->ProcMsg(id, 0, second, category::kGui); }

// With so many samples a pixel.
template <int kSamples>
class GuiFrames {
 public:
  static constexpr std::int64_t kMost = 100'000;

  explicit GuiFrames(std::size_t buttons)
      : page_(buttons, [this](base::Backends& backends) {
          backends.window = &window_;
          backends.render = &renderer_;
          backends.fonts = &fonts_;
        }) {
    page_.host.engine.viewport.Resize(kViewWidth, kViewHeight);
  }

  void Load() { page_.Load(); }
  void Unload() const { page_.Unload(); }

  void Update(std::size_t hovered) {
    window_.SetCursor(page_.PlaceOf(hovered));
    while (window_.NextEvent()) {
    }
    Send(message::kMouseMove);
    Send(message::kFrame);
    Send(message::kDeliverQueue);
    page_.host.engine.Animate(kFrameSeconds);
  }

  void Draw() {
    page_.host.engine.Draw([this] {
      Viewport* view = &page_.host.engine.viewport;
      Send(message::kRender, reinterpret_cast<std::uintptr_t>(view));
      page_.host.gui->DrawTooltip(view);
    });
    window_.Swap();
    glFinish();
  }

 private:
  host::SdlWindow window_{{.title = "buttons", .width = kViewWidth, .height = kViewHeight, .offscreen = true}};
  host::GlRenderer renderer_{{.samples = kSamples, .onError = {}}};
  host::FreetypeFonts fonts_{renderer_.GlyphPages()};
  ButtonPage page_;
};

constexpr int kSamplesOfGuihost = 4;

void CountCalls(benchmark::State& state) {
  GuiFrames<kSamplesOfGuihost> screen(static_cast<std::size_t>(state.range(0)));
  screen.Load();
  std::size_t hovered = 0;
  const auto play = [&] {
    hovered = 1 - hovered;
    screen.Update(hovered);
    screen.Draw();
  };
  GlCalls calls;
  for (auto _ : state) calls = CountGlCalls(play);
  state.counters["calls"] = static_cast<double>(calls.all);
  state.counters["draws"] = static_cast<double>(calls.draws);
  screen.Unload();
}

void RegisterAll() {
  benchmark::RegisterBenchmark("Calls", CountCalls)->Apply(ForEachCount<GuiFrames<kSamplesOfGuihost>>)->Iterations(1);
  RegisterFrames<GuiFrames<kSamplesOfGuihost>>("Frame");
  RegisterFrames<GuiFrames<0>>("FrameOfOneSample");
}

}  // namespace
}  // namespace qen::bench

int main(int argc, char** argv) {
  return qen::bench::RunBenchmarks<qen::bench::GuiFrames<0>>(argc, argv, qen::bench::RegisterAll);
}
