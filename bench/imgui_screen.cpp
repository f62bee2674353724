// The screen of buttons with Dear ImGui, in one window as large as the view. It keeps no widgets: there is nothing to
// load, and an update builds what is drawn.
#include <imgui.h>

#include <vector>

#include "bench/screen_benchmarks.h"

namespace qen::bench {
namespace {

class ImGuiScreen {
 public:
  static constexpr bool kLoads = false;
  explicit ImGuiScreen(std::size_t buttons) : grid_(buttons) {
    for (std::size_t i = 0; i < buttons; ++i) labels_.push_back(LabelOf(i));
    ImGui::CreateContext();
    ImGuiIO& io = ImGui::GetIO();
    io.IniFilename = nullptr;
    io.DisplaySize = {grid_.Width(), grid_.Height()};
    io.BackendFlags |= ImGuiBackendFlags_RendererHasVtxOffset;  // more than 65,536 vertices
    unsigned char* pixels = nullptr;
    int width = 0;
    int height = 0;
    io.Fonts->GetTexDataAsRGBA32(&pixels, &width, &height);
  }
  ~ImGuiScreen() { ImGui::DestroyContext(); }
  ImGuiScreen(const ImGuiScreen&) = delete;
  ImGuiScreen& operator=(const ImGuiScreen&) = delete;

  void Load() {}
  void Unload() {}

  void Update(std::size_t hovered) {
    ImGuiIO& io = ImGui::GetIO();
    io.DeltaTime = 1.0F / 60.0F;
    io.MousePos = {grid_.X(hovered) + 2.0F, grid_.Y(hovered) + 2.0F};
    ImGui::NewFrame();
    ImGui::SetNextWindowPos({0, 0});
    ImGui::SetNextWindowSize(io.DisplaySize);
    ImGui::Begin("screen", nullptr,
                 ImGuiWindowFlags_NoDecoration | ImGuiWindowFlags_NoMove | ImGuiWindowFlags_NoBackground);
    for (std::size_t i = 0; i < labels_.size(); ++i) {
      ImGui::SetCursorPos({grid_.X(i), grid_.Y(i)});
      clicked_ += ImGui::Button(labels_[i].c_str(), {Grid::kButtonWidth, Grid::kButtonHeight}) ? 1 : 0;
    }
    ImGui::End();
    ImGui::EndFrame();
  }

  void Draw() {
    ImGui::Render();
    benchmark::DoNotOptimize(ImGui::GetDrawData()->TotalVtxCount);
  }

 private:
  Grid grid_;
  std::vector<std::string> labels_;
  int clicked_ = 0;
};

}  // namespace
}  // namespace qen::bench

int main(int argc, char** argv) { return qen::bench::RunScreenBenchmarks<qen::bench::ImGuiScreen>(argc, argv); }
