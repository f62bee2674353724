// The screen of buttons as a page of this module, on an engine whose renderer does nothing.
#include <cmath>

#include "base/backends/render_backend.h"
#include "bench/bench_host.h"
#include "bench/screen_benchmarks.h"

namespace qen::bench {
namespace {

class NullRender final : public base::IRenderBackend {
 public:
  std::uint32_t CreateTexture(const base::Image&) override { return 1; }
  void DestroyTexture(std::uint32_t) override {}
  std::uint32_t CreateGeometry(std::span<const base::Vertex>, std::span<const std::uint32_t>) override { return 1; }
  void DestroyGeometry(std::uint32_t) override {}
  void Draw(const base::DrawList& list, std::int32_t, std::int32_t) override { benchmark::DoNotOptimize(list.items.data()); }
};

constexpr float kEyeDistance = 144.1F;

String Wide(std::string_view text) { return {text.begin(), text.end()}; }

// Widgets begin with "~b"; nodes of any other mark are decoration.
base::SceneData SceneOf(std::size_t buttons, StringView mark) {
  base::SceneData scene;
  // Buttons of one size fill the view: the more there are, the farther away they stand.
  const Grid grid(buttons);
  constexpr float kStep = 11.0F;
  const float half = static_cast<float>(grid.columns) * kStep * 0.5F;
  const float away = half / 55.0F;
  for (std::size_t i = 0; i < buttons; ++i) {
    const String name = Wide(LabelOf(i));
    const Vec3 place{static_cast<float>(grid.Column(i)) * kStep - half, static_cast<float>(grid.Row(i)) * kStep - half,
                     kEyeDistance * (1.0F - away)};
    const std::int32_t node = base::AddNode(scene, String(mark) + name, -1, place);
    for (const StringView state : {u"normal", u"onmouse", u"disabled"}) {
      if (i == 0) {
        base::AddBox(scene, String(state) + name, node, {}, {4.4F, 3.0F, 1.0F});
      } else {
        base::AddNode(scene, String(state) + name, node);
        scene.nodes.back().mesh = static_cast<std::int32_t>(state == u"normal" ? 0 : state == u"onmouse" ? 1 : 2);
      }
    }
    const std::int32_t label = base::AddNode(scene, u"text" + name, node);
    base::AddNode(scene, u"normal_text" + name, label);
    scene.nodes.back().mesh = 0;
  }
  return scene;
}

String DefinitionOf(std::size_t buttons, const String& scene) {
  String definition = u"name " + scene + u"\n";
  for (std::size_t i = 0; i < buttons; ++i) {
    definition += u"item ~b" + Wide(LabelOf(i)) + u"\n{\n\tmessage play:" + Wide(LabelOf(i)) + u"\n\ttextid " +
                  Wide(std::to_string(i)) +
                  u"\n\tcentered 1\n\tfont \"DejaVu Serif\" { height -10 weight 700 }\n\tcolor_normal d8f0ff\n}\n";
  }
  return definition;
}

class GuiScreen {
 public:
  static constexpr bool kLoads = true;

  explicit GuiScreen(std::size_t buttons) : host_([this](base::Backends& backends) { backends.render = &render_; }) {
    String texts = u"lang english\n{\n";
    for (std::size_t i = 0; i < buttons; ++i) {
      texts += u"\tstr" + Wide(std::to_string(i)) + u" \"" + Wide(LabelOf(i)) + u"\"\n";
    }
    host_.engine.files.AddText(u"texts.txt", texts + u"}\n");
    host_.engine.files.AddText(u"gui.txt", u"lang texts.txt");
    for (const StringView mark : {kWidgets, kDecoration}) {
      const String scene = String(mark) + u".glb";
      host_.engine.AddScene(scene, SceneOf(buttons, mark));
      host_.engine.files.AddText(String(mark) + u".txt", DefinitionOf(buttons, scene));
    }
    host_.gui->Load(u"gui.txt", &host_.engine.camera);
  }

  void Load() { LoadPage(kWidgets); }
  void LoadSceneAlone() { LoadPage(kDecoration); }

  void Unload() const { host_.gui->Release(); }

  void Update(std::size_t hovered) {
    if (places_.empty()) FindPlaces();
    host_.gui->SetCursor(places_[hovered].x, places_[hovered].y);
    host_.gui->Update(0, 0, 0);
  }

  void Draw() {
    host_.engine.Draw([this] { host_.gui->Render(&host_.engine.viewport); });
  }

  // A page whose scene is the same, but has no widgets, is left out.
  std::size_t Bytes() { return BytesOf(kWidgets) - BytesOf(kDecoration); }

 private:
  static constexpr StringView kWidgets = u"~b";
  static constexpr StringView kDecoration = u"x-";

  void LoadPage(StringView mark) {
    IGui& gui = *host_.gui;
    gui.AddPage((String(mark) + u".txt").c_str(), &host_.engine.camera);
    gui.SetViewport(&host_.engine.viewport);
    gui.GetActivePages() = gui.GetRenderPages() = {0};
    gui.GetPage(0)->Disable(false);
  }

  std::size_t BytesOf(StringView mark) {
    const std::size_t before = HeapBytes();
    LoadPage(mark);
    const std::size_t after = HeapBytes();
    Unload();
    return after - before;
  }

  void FindPlaces() {
    const base::Point size = host_.engine.window.size;
    const Matrix4x4 toClip = host_.engine.camera.GetView() * host_.engine.camera.GetProjection();
    for (ICGUIObject* widget : host_.gui->GetPage(0)->items) {
      Matrix4x4 world = Matrix4x4::Identity;
      widget->GetMatrix(world);
      const Vec3 middle = world * Vec3{};
      const Vec4 seen = Vec4{middle.x, middle.y, middle.z, 1.0F} * toClip;
      places_.push_back(
          {static_cast<std::int32_t>(std::lround((seen.x / seen.w + 1.0F) * 0.5F * static_cast<float>(size.x))),
           static_cast<std::int32_t>(std::lround((1.0F - seen.y / seen.w) * 0.5F * static_cast<float>(size.y)))});
    }
  }

  NullRender render_;
  test::Host host_;
  std::vector<base::Point> places_;
};

}  // namespace
}  // namespace qen::bench

int main(int argc, char** argv) { return qen::bench::RunScreenBenchmarks<qen::bench::GuiScreen>(argc, argv); }
