#include "bench/button_page.h"

#include <cmath>

#include "bench/screen_benchmarks.h"

namespace qen::bench {
namespace {

constexpr float kEyeDistance = 144.1F;

String Wide(std::string_view text) { return {text.begin(), text.end()}; }

// Widgets begin with "~b"; nodes of any other mark are decoration.
base::SceneData SceneOf(std::size_t buttons, StringView mark) {
  base::SceneData scene;
  // Buttons of one size fill the view: the more there are, the farther away they stand.
  const Grid grid(buttons);
  constexpr float kStep = 11.0F;
  constexpr float kHalfSeen = 59.7F;  // of the height that is seen at the eye distance
  const float half = static_cast<float>(grid.columns) * kStep * 0.5F;
  const float first = 0.5F * kStep - half;
  const float behind = kEyeDistance * (half / kHalfSeen - 1.0F);
  for (std::size_t i = 0; i < buttons; ++i) {
    const String name = Wide(LabelOf(i));
    const Vec3 place{first + static_cast<float>(grid.Column(i)) * kStep,
                     first + static_cast<float>(grid.Row(i)) * kStep, -behind};
    const std::int32_t node = base::AddNode(scene, String(mark) + name, -1, place);
    for (const StringView state : {u"normal", u"onmouse", u"disabled"}) {
      if (i == 0) {
        base::AddBox(scene, String(state) + name, node, {}, {4.4F, 3.0F, 1.0F});
      } else {
        base::AddNode(scene, String(state) + name, node);
        scene.nodes.back().mesh = static_cast<std::int32_t>(state == u"normal" ? 0 : state == u"onmouse" ? 1 : 2);
      }
    }
    const std::int32_t label = base::AddNode(scene, u"text" + name, node, {0.0F, 0.0F, 1.1F});
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
                  u"\n\tcentered 1\n\tfont \"DejaVu Serif\" { height -7 weight 700 }\n\tcolor_normal 203040\n}\n";
  }
  return definition;
}

}  // namespace

ButtonPage::ButtonPage(std::size_t buttons, const std::function<void(base::Backends&)>& adjust) : host(adjust) {
  String texts = u"lang english\n{\n";
  for (std::size_t i = 0; i < buttons; ++i) {
    texts += u"\tstr" + Wide(std::to_string(i)) + u" \"" + Wide(LabelOf(i)) + u"\"\n";
  }
  host.engine.files.AddText(u"texts.txt", texts + u"}\n");
  host.engine.files.AddText(u"gui.txt", u"lang texts.txt");
  for (const StringView mark : {kWidgets, kDecoration}) {
    const String scene = String(mark) + u".glb";
    host.engine.AddScene(scene, SceneOf(buttons, mark));
    host.engine.files.AddText(String(mark) + u".txt", DefinitionOf(buttons, scene));
  }
  host.gui->Load(u"gui.txt", &host.engine.camera);
}

void ButtonPage::LoadPage(StringView mark) {
  IGui& gui = *host.gui;
  gui.AddPage((String(mark) + u".txt").c_str(), &host.engine.camera);
  gui.SetViewport(&host.engine.viewport);
  gui.GetActivePages() = gui.GetRenderPages() = {0};
  gui.GetPage(0)->Disable(false);
}

base::Point ButtonPage::PlaceOf(std::size_t button) {
  if (places_.empty()) FindPlaces();
  return places_[button];
}

void ButtonPage::FindPlaces() {
  const Viewport& view = host.engine.viewport;
  const auto width = static_cast<float>(view.GetActualWidth());
  const auto height = static_cast<float>(view.GetActualHeight());
  const Matrix4x4 toClip = host.engine.camera.GetView() * host.engine.camera.GetProjection();
  for (ICGUIObject* widget : host.gui->GetPage(0)->items) {
    Matrix4x4 world = Matrix4x4::Identity;
    widget->GetMatrix(world);
    const Vec3 middle = world * Vec3{};
    const Vec4 seen = Vec4{middle.x, middle.y, middle.z, 1.0F} * toClip;
    places_.push_back({static_cast<std::int32_t>(std::lround((seen.x / seen.w + 1.0F) * 0.5F * width)),
                       static_cast<std::int32_t>(std::lround((1.0F - seen.y / seen.w) * 0.5F * height))});
  }
}

}  // namespace qen::bench
