// Whole frames of the screen of buttons with Dear ImGui and its backends for SDL 2 and OpenGL 3, in the same window.
#include <SDL.h>
#include <backends/imgui_impl_opengl3.h>
#include <backends/imgui_impl_sdl.h>
#include <epoxy/gl.h>

#include "bench/imgui_buttons.h"
#include "host/window/sdl_window.h"

namespace qen::bench {
namespace {

// As many pixels as the buttons of this module's page have, and labels that fit into them.
ButtonLayout LayoutOf(std::size_t buttons) {
  const float step = static_cast<float>(kViewHeight) / static_cast<float>(Grid(buttons).columns);
  const ImVec2 size{step * 8.8F / 11.0F, step * 6.0F / 11.0F};
  return {.step = {step, step}, .size = size, .fontScale = size.x / Grid::kButtonWidth};
}

class ImGuiFrames {
 public:
  static constexpr std::int64_t kMost = 10'000;

  explicit ImGuiFrames(std::size_t buttons) : buttons_(buttons, LayoutOf(buttons)) {
    ImGui_ImplSDL2_InitForOpenGL(SDL_GL_GetCurrentWindow(), SDL_GL_GetCurrentContext());
    ImGui_ImplOpenGL3_Init("#version 330");
  }
  ~ImGuiFrames() {
    ImGui_ImplOpenGL3_Shutdown();
    ImGui_ImplSDL2_Shutdown();
  }
  ImGuiFrames(const ImGuiFrames&) = delete;
  ImGuiFrames& operator=(const ImGuiFrames&) = delete;

  void Load() {}
  void Unload() {}

  void Update(std::size_t hovered) {
    SDL_Event event;
    while (SDL_PollEvent(&event) != 0) ImGui_ImplSDL2_ProcessEvent(&event);
    ImGui_ImplOpenGL3_NewFrame();
    ImGui_ImplSDL2_NewFrame();
    buttons_.Build(hovered);
  }

  void Draw() {
    ImGui::Render();
    glViewport(0, 0, kViewWidth, kViewHeight);
    glClearColor(0.0F, 0.0F, 0.0F, 1.0F);
    glClear(GL_COLOR_BUFFER_BIT);
    ImGui_ImplOpenGL3_RenderDrawData(ImGui::GetDrawData());
    window_.Swap();
    glFinish();
  }

 private:
  host::SdlWindow window_{{.title = "buttons", .width = kViewWidth, .height = kViewHeight, .offscreen = true}};
  ImGuiButtons buttons_;
};

}  // namespace
}  // namespace qen::bench

int main(int argc, char** argv) {
  using qen::bench::ImGuiFrames;
  return qen::bench::RunBenchmarks<ImGuiFrames>(argc, argv, [] { qen::bench::RegisterFrames<ImGuiFrames>("Frame"); });
}
