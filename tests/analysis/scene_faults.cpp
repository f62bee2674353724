#include <array>
#include <stdexcept>

#include "base/recording/scene_builder.h"
#include "seeded_faults.h"

namespace qen::analysis {
namespace {

base::NodeData& MenuNode(SoundGui& gui, StringView name) { return NodeOf(gui.scenes[kMenuScene], name); }

// The first child of that name below a node, and its mesh.
base::NodeData& ChildOf(base::SceneData& scene, StringView parent, StringView name) {
  const auto position = &NodeOf(scene, parent) - scene.nodes.data();
  for (base::NodeData& node : scene.nodes) {
    if (node.parent == position && node.name == name) return node;
  }
  throw std::runtime_error("no such child");
}

void Stretch(base::SceneData& scene, const base::NodeData& node, const Vec3& by, const Vec3& move = {}) {
  for (base::SubMeshData& part : scene.meshes[static_cast<std::size_t>(node.mesh)]) {
    for (base::Vertex& vertex : part.vertices) {
      Vec3& place = vertex.position;
      place = Vec3{place.x * by.x, place.y * by.y, place.z * by.z} + move;
    }
  }
}

constexpr std::array kSceneFaults{
    SeededFault{"ScaledText", Rule::ScaledText, kMenuFile, "item |~tTitle",
                [](SoundGui& gui) {
                  MenuNode(gui, u"~tTitle").pose.scale = {1.5F, 1.0F, 1.0F};
                }},
    SeededFault{"TurnedText", Rule::ScaledText, kMenuFile, "item |~tTitle",
                [](SoundGui& gui) {
                  MenuNode(gui, u"~tTitle").pose.rotation = {0.0F, 0.0F, 0.1F, 0.995F};
                }},
    SeededFault{"ScaledLabel", Rule::ScaledText, kMenuFile, "item |~bQuit",
                [](SoundGui& gui) {
                  ChildOf(gui.scenes[kMenuScene], u"~bQuit", u"text").pose.scale = {0.9F, 0.9F, 0.9F};
                }},
    SeededFault{"ScaledList", Rule::ScaledText, kMenuFile, "item |~lLevels",
                [](SoundGui& gui) {
                  MenuNode(gui, u"~lLevels").pose.scale = {1.1F, 1.1F, 1.1F};
                }},
    SeededFault{"LabelBehindItsFace", Rule::Covered, kMenuFile, "item |~bQuit",
                [](SoundGui& gui) {
                  ChildOf(gui.scenes[kMenuScene], u"~bQuit", u"text").pose.translation = {0.0F, 0.0F, 0.05F};
                }},
    SeededFault{"LabelBehindOneState", Rule::Covered, kMenuFile, "item |~bQuit",
                [](SoundGui& gui) {
                  ChildOf(gui.scenes[kMenuScene], u"~bQuit", u"onmouse").pose.translation = {0.0F, 0.0F, 1.0F};
                }},
    SeededFault{"LabelOfASide", Rule::Covered, kOptionsFile, "item |~cEasy",
                [](SoundGui& gui) {
                  base::SceneData& scene = gui.scenes[kOptionsScene];
                  ChildOf(scene, u"unchecked", u"text").pose.translation = {};
                }},
    SeededFault{"WidgetBehindDecoration", Rule::Covered, kOptionsFile, "item |~pMap",
                [](SoundGui& gui) {
                  base::AddBox(gui.scenes[kOptionsScene], u"Pillar", -1, {0.0F, -20.0F, 5.0F}, {1.0F, 10.0F, 1.0F});
                }},
    SeededFault{"WidgetBehindAnother", Rule::Covered, kBagFile, "item |~qSlot1",
                [](SoundGui& gui) {
                  base::AddBox(gui.scenes[kBagScene], u"Lid", -1, {-18.0F, 0.0F, 2.0F}, {4.0F, 4.0F, 1.0F});
                }},
    SeededFault{"RowsInTheirMesh", Rule::Covered, kMenuFile, "item |~lLevels",
                [](SoundGui& gui) {
                  base::SceneData& scene = gui.scenes[kMenuScene];
                  Stretch(scene, ChildOf(scene, u"~lLevels", u"list"), {1.0F, 1.0F, 1.0F}, {0.0F, 0.0F, 0.3F});
                }},
    SeededFault{"WiderState", Rule::StateBoxes, kMenuFile, "item |~bQuit",
                [](SoundGui& gui) {
                  base::SceneData& scene = gui.scenes[kMenuScene];
                  Stretch(scene, ChildOf(scene, u"~bQuit", u"onmouse"), {1.2F, 1.0F, 1.0F});
                }},
    SeededFault{"MovedState", Rule::StateBoxes, kMenuFile, "item |~bQuit",
                [](SoundGui& gui) {
                  ChildOf(gui.scenes[kMenuScene], u"~bQuit", u"disabled").pose.translation = {0.0F, 2.0F, 0.0F};
                }},
    SeededFault{"SidesThatDiffer", Rule::StateBoxes, kOptionsFile, "item |~cEasy",
                [](SoundGui& gui) {
                  NodeOf(gui.scenes[kOptionsScene], u"unchecked").pose.translation = {3.0F, 0.0F, 0.0F};
                }},
    SeededFault{"StateOfABar", Rule::StateBoxes, kOptionsFile, "item |~sMusic",
                [](SoundGui& gui) {
                  base::SceneData& scene = gui.scenes[kOptionsScene];
                  const auto slider = static_cast<std::int32_t>(&NodeOf(scene, u"slider") - scene.nodes.data());
                  base::AddBox(scene, u"onmouse", slider, {}, {4.0F, 2.0F, 0.1F});
                }},
    SeededFault{"ListBeforeItsRows", Rule::Covered, kMenuFile, "item |~lLevels",
                [](SoundGui& gui) {
                  base::SceneData& scene = gui.scenes[kMenuScene];
                  Stretch(scene, ChildOf(scene, u"~lLevels", u"list"), {1.0F, 1.0F, 1.0F}, {0.0F, 0.0F, 2.0F});
                }},
    SeededFault{"ListBesideItsNode", Rule::ListOffNode, kMenuFile, "item |~lLevels",
                [](SoundGui& gui) {
                  base::SceneData& scene = gui.scenes[kMenuScene];
                  Stretch(scene, ChildOf(scene, u"~lLevels", u"list"), {1.0F, 1.0F, 1.0F}, {2.0F, 0.0F, 0.0F});
                }},
    SeededFault{"OneCamera", Rule::CameraOfOthers, kBagFile, "name |scenes",
                [](SoundGui& gui) { base::AddCamera(gui.scenes[kMenuScene], u"Camera01", 0.9F, 1.0F, 80000.0F); }},
    SeededFault{"CamerasThatDiffer", Rule::CameraOfOthers, kBagFile, "name |scenes",
                [](SoundGui& gui) {
                  for (const char* scene : {kMenuScene, kOptionsScene, kBagScene}) {
                    base::AddCamera(gui.scenes[scene], u"Camera01", scene == kBagScene ? 0.9F : 0.8F, 1.0F, 900.0F);
                  }
                }},
    SeededFault{"SamePageName", Rule::SamePageName, kBagFile, "name |other",
                [](SoundGui& gui) {
                  gui.Replace(kBagFile, "scenes\\bag.glb", "other\\menu.glb");
                  gui.Replace(kScriptFile, "addrenderpage:bag.glb", "addrenderpage:menu.glb");
                  gui.Replace(kScriptFile, "remactivepage:bag.glb", "remactivepage:menu.glb");
                  gui.scenes["other\\menu.glb"] = gui.scenes[kBagScene];
                  gui.files["other\\menu.glb"] = "scene";
                }},
    SeededFault{"ExitWithoutEntrance", Rule::ExitWithoutEntrance, kMenuFile, "anim_out",
                [](SoundGui& gui) { gui.Replace(kMenuFile, "anim_in anims\\menu_in.glb\n", ""); }},
    SeededFault{"Skin", Rule::NotDrawn, kBagFile, "name |scenes",
                [](SoundGui& gui) { gui.scenes[kBagScene].undrawn.emplace_back(u"skins"); }},
    SeededFault{"NineLights", Rule::NotDrawn, kBagFile, "name |scenes",
                [](SoundGui& gui) {
                  for (int i = 0; i < 9; ++i) base::AddNode(gui.scenes[kBagScene], u"Lamp");
                  for (base::NodeData& node : gui.scenes[kBagScene].nodes) {
                    if (node.name == u"Lamp") node.light.emplace();
                  }
                }},
};

}  // namespace

std::span<const SeededFault> SceneFaults() { return kSceneFaults; }

}  // namespace qen::analysis
