// The screen of buttons with Dear ImGui, in one window as large as the view.
#pragma once

#include <imgui.h>

#include <string>
#include <vector>

#include "bench/screen_benchmarks.h"

namespace qen::bench {

// In pixels.
struct ButtonLayout {
  ImVec2 step;
  ImVec2 size;
  float fontScale = 1.0F;
};

class ImGuiButtons {
 public:
  // Makes the context, which lives as long as this.
  ImGuiButtons(std::size_t buttons, const ButtonLayout& layout) : grid_(buttons), layout_(layout) {
    for (std::size_t i = 0; i < buttons; ++i) labels_.push_back(LabelOf(i));
    ImGui::CreateContext();
    ImGui::GetIO().IniFilename = nullptr;
    ImGui::GetIO().FontGlobalScale = layout.fontScale;
    ImGui::GetStyle().FramePadding = {0, 0};  // the labels have the whole of the buttons
    ImGui::GetStyle().WindowPadding = {0, 0};
  }
  ~ImGuiButtons() { ImGui::DestroyContext(); }
  ImGuiButtons(const ImGuiButtons&) = delete;
  ImGuiButtons& operator=(const ImGuiButtons&) = delete;

  [[nodiscard]] ImVec2 CornerOf(std::size_t button) const {
    return {layout_.step.x * static_cast<float>(grid_.Column(button)),
            layout_.step.y * static_cast<float>(grid_.Row(button))};
  }

  // What is asked for in a frame, between its beginning and its drawing; the cursor on a button.
  void Build(std::size_t hovered) {
    ImGuiIO& io = ImGui::GetIO();
    const ImVec2 corner = CornerOf(hovered);
    io.MousePos = {corner.x + 2.0F, corner.y + 2.0F};
    ImGui::NewFrame();
    ImGui::SetNextWindowPos({0, 0});
    ImGui::SetNextWindowSize(io.DisplaySize);
    ImGui::Begin("screen", nullptr,
                 ImGuiWindowFlags_NoDecoration | ImGuiWindowFlags_NoMove | ImGuiWindowFlags_NoBackground);
    for (std::size_t i = 0; i < labels_.size(); ++i) {
      ImGui::SetCursorPos(CornerOf(i));
      clicked_ += ImGui::Button(labels_[i].c_str(), layout_.size) ? 1 : 0;
    }
    ImGui::End();
    ImGui::EndFrame();
  }

 private:
  Grid grid_;
  ButtonLayout layout_;
  std::vector<std::string> labels_;
  int clicked_ = 0;
};

}  // namespace qen::bench
