// A page with a widget of every kind, side by side.
#pragma once

#include "tests/module/gui_fixture.h"
#include "tests/module/widget_scenes.h"

namespace qen::test {

inline constexpr StringView kEveryWidget[] = {u"~bbutton", u"~ccheck", u"~ppicture", u"~sbar",
                                              u"~llist",   u"~ttext",  u"~tscroll"};

// With the parts that definitions can set.
inline base::SceneData SceneOfEveryWidget() {
  base::SceneData scene;
  const std::int32_t button = AddButton(scene, u"button", {-60, 50, 0});
  base::AddNode(scene, u"text_button", button);
  AddCheckButton(scene, u"check", {-30, 50, 0});
  base::AddBox(scene, u"~ppicture", -1, {0, 50, 0}, {5, 5, 1});
  base::AddPicture(scene);
  AddSlideBar(scene, u"~sbar", -1, {20, -50, 0}, false);
  AddList(scene, u"list", {-40, 20, 0});
  AddTextBox(scene, u"text", {40, 45, 0});
  AddTextBox(scene, u"scroll", {40, 15, 0}, true);
  return scene;
}

// Adds the scene and the definition, which gives every widget the properties, as `name`.glb and `name`.txt.
inline void AddPageOfEveryWidget(base::RecordingEngine& engine, const String& name, StringView properties) {
  engine.AddScene(name + u".glb", SceneOfEveryWidget());
  String definition = u"name " + name + u".glb\n";
  for (const StringView widget : kEveryWidget) {
    definition += u"item " + String(widget) + u"\n{\n" + String(properties) + u"\n}\n";
  }
  engine.files.AddText(name + u".txt", definition);
}

}  // namespace qen::test
