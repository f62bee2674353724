#include "base/recording/scene_builder.h"

#include <utility>

namespace qen::base {
namespace {

// A corner's bits say on which side it is along x, y and z.
SubMeshData BoxMesh(const Vec3& halfSize) {
  SubMeshData box;
  for (unsigned corner = 0; corner < 8; ++corner) {
    Vertex vertex;
    vertex.position = {(corner & 1U) != 0 ? halfSize.x : -halfSize.x, (corner & 2U) != 0 ? halfSize.y : -halfSize.y,
                       (corner & 4U) != 0 ? halfSize.z : -halfSize.z};
    vertex.normal = vertex.position;
    vertex.normal.Normalize();
    box.vertices.push_back(vertex);
  }
  box.indices = {4, 5, 7, 4, 7, 6, 1, 0, 2, 1, 2, 3, 5, 1, 3, 5, 3, 7,
                 0, 4, 6, 0, 6, 2, 6, 7, 3, 6, 3, 2, 0, 1, 5, 0, 5, 4};
  return box;
}

}  // namespace

std::int32_t AddNode(SceneData& scene, StringView name, std::int32_t parent, const Vec3& translation) {
  NodeData node;
  node.name = name;
  node.parent = parent;
  node.pose.translation = translation;
  scene.nodes.push_back(std::move(node));
  return static_cast<std::int32_t>(scene.nodes.size()) - 1;
}

std::int32_t AddBox(SceneData& scene, StringView name, std::int32_t parent, const Vec3& translation,
                    const Vec3& halfSize) {
  const std::int32_t position = AddNode(scene, name, parent, translation);
  scene.nodes.back().mesh = static_cast<std::int32_t>(scene.meshes.size());
  scene.meshes.push_back({BoxMesh(halfSize)});
  return position;
}

std::int32_t AddCamera(SceneData& scene, StringView name, float angle, float nearPlane, float farPlane) {
  const std::int32_t position = AddNode(scene, name);
  scene.nodes.back().camera = {angle, nearPlane, farPlane};
  return position;
}

void AddPicture(SceneData& scene) {
  const std::int32_t mesh = scene.nodes.back().mesh;
  if (mesh < 0) return;
  MaterialData material;
  material.images[TEXTURE_SLOT_1] = static_cast<std::int32_t>(scene.images.size());
  scene.images.push_back({1, 1, {255, 255, 255, 255}});
  for (SubMeshData& subMesh : scene.meshes[static_cast<std::size_t>(mesh)]) {
    subMesh.material = static_cast<std::int32_t>(scene.materials.size());
  }
  scene.materials.push_back(material);
}

AnimationData MoveNode(StringView node, const Vec3& from, const Vec3& to, float seconds) {
  NodeTracks tracks;
  tracks.node = node;
  tracks.translation.times = {0.0F, seconds};
  tracks.translation.values = {from, to};
  AnimationData animation;
  animation.nodes.push_back(std::move(tracks));
  animation.seconds = seconds;
  return animation;
}

}  // namespace qen::base
