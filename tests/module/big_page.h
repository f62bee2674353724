// A page of many buttons that share their meshes, in rows and columns that fill the view.
#pragma once

#include "tests/module/gui_fixture.h"

namespace qen::test {

// Adds the scene and the definition, with an item block a button, as `name`.glb and `name`.txt.
inline void AddBigPage(base::RecordingEngine& engine, const String& name, std::size_t count) {
  base::SceneData scene;
  String definition = u"name " + name + u".glb\n";
  const auto columns = static_cast<std::size_t>(std::ceil(std::sqrt(static_cast<double>(count))));
  const float step = 150.0F / static_cast<float>(columns);
  for (std::size_t i = 0; i < count; ++i) {
    const std::string digits = std::to_string(i);
    const String button(digits.begin(), digits.end());
    const std::size_t row = i / columns;
    const Vec3 place{static_cast<float>(i % columns) * step - 75.0F, static_cast<float>(row) * step - 55.0F, 0};
    const std::int32_t node = base::AddNode(scene, u"~b" + button, -1, place);
    std::int32_t mesh = 0;
    for (const StringView state : {u"normal", u"onmouse", u"disabled"}) {
      if (i == 0) {
        base::AddBox(scene, String(state) + button, node, {}, {step * 0.4F, step * 0.3F, 1.0F});
      } else {
        base::AddNode(scene, String(state) + button, node);
        scene.nodes.back().mesh = mesh++;
      }
    }
    definition += u"item ~b" + button + u"\n{\n\t tooltip 3\n\t message play:level" + button + u"\n}\n";
  }
  engine.AddScene(name + u".glb", std::move(scene));
  engine.files.AddText(name + u".txt", definition);
}

}  // namespace qen::test
