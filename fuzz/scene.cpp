// glTF files: the input is a page's scene and its entrance, on the module's side too.
#include "fuzz/stage.h"
#include "host/scenes/gltf_scenes.h"

namespace qen::fuzz {
namespace {

constexpr StringView kScene = u"page.glb";
constexpr StringView kEntrance = u"in.glb";

}  // namespace

void Try(Input input) {
  Stage stage;
  host::GltfScenes scenes(stage.engine.files, [](StringView) {});
  String error;
  auto scene = scenes.ParseScene(kScene, input, true, error);
  auto entrance = scenes.ParseAnimation(kEntrance, input, error);
  scenes.ParseImage(input);
  if (!scene) return;
  stage.engine.AddScene(kScene, std::move(*scene));
  if (entrance) stage.engine.AddAnimation(kEntrance, std::move(*entrance));
  stage.Load();
  stage.Draw();
  stage.Frame(0.1);
  for (ICGUIObject* widget : stage.gui->GetPageItems(0)) stage.Click(*widget);
  stage.Frame(1.5);
  stage.Draw();
}

}  // namespace qen::fuzz
