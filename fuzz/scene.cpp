// glTF files: the input is a page's scene and its entrance, on the module's side too.
#include "fuzz/stage.h"
#include "host/scenes/gltf_scenes.h"

namespace qen::fuzz {
namespace {

constexpr StringView kScene = u"page.glb";
constexpr StringView kEntrance = u"in.glb";
constexpr std::size_t kWidgets = 8;  // that are clicked

struct SceneStage : Stage {
  SceneStage() { AddFiles(u"name page.txt"); }

  host::GltfScenes scenes{engine.files, [](StringView) {}};
};

}  // namespace

void Try(Input input) {
  auto& stage = Kept<SceneStage>();
  String error;
  auto scene = stage.scenes.ParseScene(kScene, input, true, error);
  auto entrance = stage.scenes.ParseAnimation(kEntrance, input, error);
  stage.scenes.ParseImage(input);
  if (scene) {
    stage.engine.AddScene(kScene, std::move(*scene));
    stage.engine.AddAnimation(kEntrance, std::move(entrance).value_or(base::AnimationData{}));
    stage.Load();
    stage.Draw();
    stage.Frame(0.1);
    std::vector<ICGUIObject*> widgets = stage.gui->GetPageItems(0);
    if (widgets.size() > kWidgets) widgets.resize(kWidgets);
    for (ICGUIObject* widget : widgets) stage.Click(*widget);
    stage.Frame(1.5);
    stage.Draw();
  }
  stage.GiveBack();
}

}  // namespace qen::fuzz
