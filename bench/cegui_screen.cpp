// The screen of buttons with CEGUI, loaded from a layout, with the look that its package has for demonstrations and its
// renderer that does nothing.
#include <CEGUI/CEGUI.h>
#include <CEGUI/RendererModules/Null/Renderer.h>

#include <cstdio>
#include <exception>

#include "bench/screen_benchmarks.h"

namespace qen::bench {
namespace {

// Tells its resource provider where the package put its files.
void SetFolders() {
  auto* provider = static_cast<CEGUI::DefaultResourceProvider*>(CEGUI::System::getSingleton().getResourceProvider());
  for (const char* group : {"schemes", "imagesets", "fonts", "layouts", "looknfeel"}) {
    provider->setResourceGroupDirectory(group, std::string(CEGUI_DATA_FOLDER) + "/" + group + "/");
  }
  CEGUI::ImageManager::setImagesetDefaultResourceGroup("imagesets");
  CEGUI::Font::setDefaultResourceGroup("fonts");
  CEGUI::Scheme::setDefaultResourceGroup("schemes");
  CEGUI::WidgetLookManager::setDefaultResourceGroup("looknfeel");
}

class CeguiScreen {
 public:
  static constexpr bool kLoads = true;
  static constexpr std::int64_t kMost = 10'000;  // more take minutes to load

  explicit CeguiScreen(std::size_t buttons) : grid_(buttons) {
    CEGUI::NullRenderer::bootstrapSystem();
    CEGUI::Logger::getSingleton().setLoggingLevel(CEGUI::Errors);
    CEGUI::System::getSingleton().notifyDisplaySizeChanged({grid_.Width(), grid_.Height()});
    SetFolders();
    CEGUI::SchemeManager::getSingleton().createFromFile("TaharezLook.scheme");
    CEGUI::System::getSingleton().getDefaultGUIContext().setDefaultFont(
        &CEGUI::FontManager::getSingleton().createFromFile("DejaVuSans-10.font"));
    layout_ = "<?xml version=\"1.0\" ?><GUILayout version=\"4\"><Window type=\"DefaultWindow\" name=\"screen\">";
    for (std::size_t i = 0; i < buttons; ++i) {
      std::array<char, 160> area{};
      const float x = grid_.X(i);
      const float y = grid_.Y(i);
      std::snprintf(area.data(), area.size(), "{{0,%.0f},{0,%.0f},{0,%.0f},{0,%.0f}}", static_cast<double>(x),
                    static_cast<double>(y), static_cast<double>(x + Grid::kButtonWidth),
                    static_cast<double>(y + Grid::kButtonHeight));
      layout_ += "<Window type=\"TaharezLook/Button\" name=\"" + LabelOf(i) + "\"><Property name=\"Area\" value=\"" +
                 area.data() + "\"/><Property name=\"Text\" value=\"" + LabelOf(i) + "\"/></Window>";
    }
    layout_ += "</Window></GUILayout>";
  }
  ~CeguiScreen() { CEGUI::NullRenderer::destroySystem(); }
  CeguiScreen(const CeguiScreen&) = delete;
  CeguiScreen& operator=(const CeguiScreen&) = delete;

  void Load() {
    root_ = CEGUI::WindowManager::getSingleton().loadLayoutFromString(layout_);
    Context().setRootWindow(root_);
  }

  void Unload() {
    Context().setRootWindow(nullptr);
    CEGUI::WindowManager::getSingleton().destroyWindow(root_);
    CEGUI::WindowManager::getSingleton().cleanDeadPool();
  }

  void Update(std::size_t hovered) {
    Context().injectMousePosition(grid_.X(hovered) + 2.0F, grid_.Y(hovered) + 2.0F);
    CEGUI::System::getSingleton().injectTimePulse(1.0F / 60.0F);
    Context().injectTimePulse(1.0F / 60.0F);
  }

  static void Draw() { CEGUI::System::getSingleton().renderAllGUIContexts(); }

 private:
  static CEGUI::GUIContext& Context() { return CEGUI::System::getSingleton().getDefaultGUIContext(); }

  Grid grid_;
  CEGUI::String layout_;
  CEGUI::Window* root_ = nullptr;
};

}  // namespace
}  // namespace qen::bench

int main(int argc, char** argv) {
  try {
    using qen::bench::CeguiScreen;
    return qen::bench::RunBenchmarks<CeguiScreen>(argc, argv, qen::bench::RegisterScreens<CeguiScreen>);
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "cegui_screen: %s\n", failure.what());
    return 1;
  }
}
