// Widgets of every kind as scenes have them, in a few lines. Sizes are half sizes, in world units.
#pragma once

#include "base/recording/scene_builder.h"

namespace qen::test {

// How the parts of one widget are told from those of the next; any text.
using Mark = String;

// A button without states but the normal one: a node that begins with `role`, with its mesh.
inline std::int32_t AddPart(base::SceneData& scene, StringView role, const Mark& mark, std::int32_t parent,
                            const Vec3& place, const Vec3& size) {
  const std::int32_t node = base::AddNode(scene, String(role) + mark, parent, place);
  base::AddBox(scene, u"normal_" + String(role) + mark, node, {}, size);
  return node;
}

// Moves the mesh of the last node away from the node's origin.
inline void ShiftMesh(base::SceneData& scene, const Vec3& offset) {
  for (base::SubMeshData& part : scene.meshes.at(static_cast<std::size_t>(scene.nodes.back().mesh))) {
    for (base::Vertex& vertex : part.vertices) vertex.position += offset;
  }
}

// A check button of 20 x 10 units with all its states and labels.
inline void AddCheckButton(base::SceneData& scene, const String& name, const Vec3& place) {
  const std::int32_t node = base::AddNode(scene, u"~c" + name, -1, place);
  for (const StringView side : {u"checked_", u"unchecked_"}) {
    const std::int32_t half = base::AddNode(scene, String(side) + name, node);
    for (const StringView state : {u"normal_", u"onmouse_", u"disabled_"}) {
      base::AddBox(scene, String(state) + String(side) + name, half, {}, {10, 5, 1});
    }
    base::AddNode(scene, u"text_" + String(side) + name, half);
  }
  base::AddNode(scene, u"text_" + name, node);
}

// A slide bar 60 units long round `place`: its bar, its slider at the near end, its step buttons beyond the ends. Named
// `name`, which is "~s..." for a widget and "slidery..." for a part of one.
inline void AddSlideBar(base::SceneData& scene, const String& name, std::int32_t parent, const Vec3& place,
                        bool vertical) {
  const auto along = [vertical](float x) { return vertical ? Vec3{0, -x, 0} : Vec3{x, 0, 0}; };
  const auto size = [vertical](float length) { return vertical ? Vec3{2, length, 1} : Vec3{length, 2, 1}; };
  const std::int32_t node = base::AddNode(scene, name, parent, place);
  AddPart(scene, vertical ? u"bary" : u"barx", name, node, {}, size(30));
  AddPart(scene, u"slider", name, node, along(-30), size(2));
  AddPart(scene, u"down", name, node, along(-36), size(2));
  AddPart(scene, u"up", name, node, along(36), size(2));
}

// A text in a box 40 units wide and 20 high, perhaps with a slide bar on its right.
inline std::int32_t AddTextBox(base::SceneData& scene, const String& name, const Vec3& place, bool scrolls = false) {
  const std::int32_t node = base::AddNode(scene, u"~t" + name, -1, place);
  base::AddBox(scene, u"normal_" + name, node, {}, {20, 10, 1});
  if (scrolls) AddSlideBar(scene, u"slidery_" + name, node, {30, 0, 0}, true);
  return node;
}

// A list 60 units wide and 30 high in the middle of the view, with a slide bar on its right.
inline std::int32_t AddList(base::SceneData& scene, const String& name, const Vec3& place = {}) {
  const std::int32_t node = base::AddNode(scene, u"~l" + name, -1, place);
  base::AddBox(scene, u"list_" + name, node, {}, {30, 15, 1});
  AddSlideBar(scene, u"slidery_" + name, node, {40, 0, 0}, true);
  return node;
}

}  // namespace qen::test
