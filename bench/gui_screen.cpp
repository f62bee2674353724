// The screen of buttons as a page of this module, on an engine whose renderer does nothing.
#include "base/backends/render_backend.h"
#include "bench/button_page.h"
#include "bench/screen_benchmarks.h"

namespace qen::bench {
namespace {

class NullRender final : public base::IRenderBackend {
 public:
  std::uint32_t CreateTexture(const base::Image&) override { return 1; }
  void DestroyTexture(std::uint32_t) override {}
  std::uint32_t CreateGeometry(std::span<const base::Vertex>, std::span<const std::uint32_t>) override { return 1; }
  void DestroyGeometry(std::uint32_t) override {}
  void Draw(const base::DrawList& list, std::int32_t, std::int32_t) override {
    benchmark::DoNotOptimize(list.items.data());
  }
};

class GuiScreen {
 public:
  static constexpr bool kLoads = true;
  static constexpr std::int64_t kMost = 100'000;

  explicit GuiScreen(std::size_t buttons)
      : page_(buttons, [this](base::Backends& backends) { backends.render = &render_; }) {}

  void Load() { page_.Load(); }
  void LoadSceneAlone() { page_.LoadSceneAlone(); }
  void Unload() const { page_.Unload(); }

  void Update(std::size_t hovered) {
    const base::Point place = page_.PlaceOf(hovered);
    page_.host.gui->SetCursor(place.x, place.y);
    page_.host.gui->Update(0, 0, 0);
  }

  void Draw() {
    page_.host.engine.Draw([this] { page_.host.gui->Render(&page_.host.engine.viewport); });
  }

 private:
  NullRender render_;
  ButtonPage page_;
};

}  // namespace
}  // namespace qen::bench

int main(int argc, char** argv) {
  using qen::bench::GuiScreen;
  return qen::bench::RunBenchmarks<GuiScreen>(argc, argv, qen::bench::RegisterScreens<GuiScreen>);
}
