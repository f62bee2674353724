#include "analysis/gui_model.h"

#include <algorithm>

#include "base/pose.h"
#include "base/scene_boxes.h"
#include "engine/string_converter.h"
#include "formats/definition_words.h"
#include "formats/page_view.h"
#include "formats/widget_kinds.h"

namespace qen::analysis {
std::size_t SceneOutline::FindChild(std::size_t parent, StringView word) const {
  const auto& children = nodes[parent].children;
  const auto found = std::ranges::find_if(children, [&](std::size_t child) {
    return ttolowercase(StringView(nodes[child].name).substr(0, word.size())) == ttolowercase(word);
  });
  return found == children.end() ? formats::kNone : *found;
}

bool IsComplete(const Gui& gui) {
  const auto isPage = [](const formats::Statement& statement) {
    return statement.keyword->value == formats::Value::Page || statement.keyword->value == formats::Value::Bag;
  };
  const auto named = static_cast<std::size_t>(std::ranges::count_if(gui.description->Reading().statements, isPage));
  return named == gui.pages.size() && std::ranges::all_of(gui.pages, &Page::hasScene);
}

StringView PageNameOf(StringView sceneFile) { return sceneFile.substr(sceneFile.find_last_of(u'\\') + 1); }

SceneOutline OutlineOf(const base::SceneData& scene) {
  SceneOutline outline;
  std::vector<Matrix4x4> globals;
  outline.nodes.reserve(scene.nodes.size());
  globals.reserve(scene.nodes.size());
  for (const base::NodeData& data : scene.nodes) {
    const std::size_t index = outline.nodes.size();
    const bool isChild = data.parent >= 0 && static_cast<std::size_t>(data.parent) < index;
    const std::size_t parent = isChild ? static_cast<std::size_t>(data.parent) : formats::kNone;
    const Matrix4x4 own = base::ToMatrix(data.pose);
    globals.push_back(isChild ? own * globals[parent] : own);
    Node node{.name = data.name, .parent = parent, .pose = data.pose, .world = base::ToWorld(globals.back())};
    const bool hasMesh = data.mesh >= 0 && static_cast<std::size_t>(data.mesh) < scene.meshes.size();
    if (hasMesh) node.box = base::BoxOf(scene.meshes[static_cast<std::size_t>(data.mesh)]);
    if (data.name == formats::kCameraNode && !outline.camera) outline.camera = data.camera;
    if (isChild) outline.nodes[parent].children.push_back(index);
    outline.nodes.push_back(std::move(node));
  }
  return outline;
}

void FindWidgets(Page& page) {
  for (std::size_t i = 0; i < page.scene.nodes.size(); ++i) {
    const String& name = page.scene.nodes[i].name;
    if (name.size() < 2 || name[0] != formats::kWidgetMark || !formats::IsWidgetLetter(name[1], page.isBag)) continue;
    page.widgetsByName.try_emplace(ttolowercase(name), page.widgets.size());
    page.widgets.push_back({ttolowercase(name), name[1], i, {}});
  }
  const formats::Reading& reading = page.source->Reading();
  for (std::size_t i = 0; i < reading.blocks.size(); ++i) {
    const formats::Block& block = reading.blocks[i];
    if (block.scope != formats::Scope::Item) continue;
    page.items.push_back(i);
    if (block.name == formats::kNone) continue;
    const auto found = page.widgetsByName.find(ttolowercase(page.source->ValueAt(block.name)));
    if (found != page.widgetsByName.end()) page.widgets[found->second].blocks.push_back(i);
  }
}

}  // namespace qen::analysis
