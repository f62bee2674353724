// The screen of buttons with Dear ImGui, without a renderer. It keeps no widgets: there is nothing to load, and an
// update builds what is drawn.
#include "bench/imgui_buttons.h"

namespace qen::bench {
namespace {

class ImGuiScreen {
 public:
  static constexpr bool kLoads = false;
  static constexpr std::int64_t kMost = 100'000;

  explicit ImGuiScreen(std::size_t buttons)
      : buttons_(buttons, {.step = {Grid::kStepX, Grid::kStepY}, .size = {Grid::kButtonWidth, Grid::kButtonHeight}}) {
    ImGuiIO& io = ImGui::GetIO();
    const Grid grid(buttons);
    io.DisplaySize = {grid.Width(), grid.Height()};
    io.BackendFlags |= ImGuiBackendFlags_RendererHasVtxOffset;  // more than 65,536 vertices
    unsigned char* pixels = nullptr;
    int width = 0;
    int height = 0;
    io.Fonts->GetTexDataAsRGBA32(&pixels, &width, &height);
  }

  void Load() {}
  void Unload() {}

  void Update(std::size_t hovered) {
    ImGui::GetIO().DeltaTime = kFrameSeconds;
    buttons_.Build(hovered);
  }

  void Draw() {
    ImGui::Render();
    benchmark::DoNotOptimize(ImGui::GetDrawData()->TotalVtxCount);
  }

 private:
  ImGuiButtons buttons_;
};

}  // namespace
}  // namespace qen::bench

int main(int argc, char** argv) {
  using qen::bench::ImGuiScreen;
  return qen::bench::RunBenchmarks<ImGuiScreen>(argc, argv, qen::bench::RegisterScreens<ImGuiScreen>);
}
