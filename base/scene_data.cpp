#include "base/scene_data.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "base/context.h"
#include "base/instance.h"
#include "base/record.h"
#include "engine/string_converter.h"

namespace qen {
namespace {

using base::NodeData;
using base::SceneData;

bool IsSame(const Matrix4x4& a, const Matrix4x4& b) { return std::memcmp(&a, &b, sizeof a) == 0; }

// Makes the nodes out of a scene file.
class Filler {
 public:
  Filler(SimpleScene::Data& data, const SceneData& source) : data_(data), source_(source) {}

  void Run() {
    Reserve();
    for (std::size_t i = 0; i < source_.nodes.size(); ++i) MakeNode(static_cast<std::uint32_t>(i));
    data_.restPoses.Shrink();
    MakeAmbient();
  }

 private:
  // What nodes point to does not move.
  void Reserve() {
    const std::size_t nodes = source_.nodes.size();
    std::size_t characters = 0;
    std::size_t meshes = 0;
    std::size_t subMeshes = 0;
    for (const NodeData& node : source_.nodes) {
      characters += node.name.size();
      const base::SceneLooks::Shape* shape = data_.looks.At(node.mesh);
      if (shape == nullptr) continue;
      ++meshes;
      subMeshes += shape->parts.size();
    }
    data_.nodes = std::vector<TMNode>(nodes);
    data_.order.reserve(nodes);
    data_.names.Reserve(nodes, characters);
    data_.meshes.reserve(meshes);
    data_.subMeshes.reserve(subMeshes);
    globals_.resize(nodes);
  }

  void MakeNode(std::uint32_t i) {
    const NodeData& source = source_.nodes[i];
    TMNode& node = data_.nodes[i];
    node.position = i;
    node.name = data_.names.Keep(source.name);
    data_.names.Add(node);
    globals_[i] = base::ToMatrix(source.pose);
    if (source.parent >= 0 && static_cast<std::uint32_t>(source.parent) < i) {
      node.parent = static_cast<std::uint32_t>(source.parent);
      globals_[i] = globals_[i] * globals_[node.parent];
    }
    data_.restPoses.Add(i, source.pose);
    PutInPlace(node, base::ToWorld(globals_[i]));
    node.mesh = MakeMesh(source);
    node.cameraParameters = MakeCamera(source);
    if (source.light) data_.lights.push_back({*source.light, i});
    data_.order.push_back(&node);
  }

  // States of a widget mostly stand where it does, or where the state before them does.
  void PutInPlace(TMNode& node, const Matrix4x4& world) {
    for (const std::uint32_t other : {node.parent, node.position - 1}) {
      if (other >= node.position || !IsSame(*data_.nodes[other].transform, world)) continue;
      node.transform = Shared(*data_.nodes[other].transform);
      node.inverseTransform = Shared(*data_.nodes[other].inverseTransform);
      return;
    }
    const SimpleScene::Data::Place& place = data_.places.emplace_back(SimpleScene::Data::Place{world, world.Inverse()});
    node.transform = Shared(place.transform);
    node.inverseTransform = Shared(place.inverse);
  }

  void MakeAmbient() {
    if (!source_.ambient || source_.nodes.empty()) return;
    Light& light = data_.lights.emplace_back().light;
    light.type = Light::kAmbient;
    light.color = *source_.ambient;
  }

  const float* MakeCamera(const NodeData& source) {
    constexpr float kAngleFactor = 1.3F;
    if (!source.camera) return nullptr;
    const auto [angle, nearPlane, farPlane] = *source.camera;
    return data_.cameras.emplace_back(std::array{0.0F, kAngleFactor * angle, nearPlane, farPlane}).data();
  }

  Mesh* MakeMesh(const NodeData& source) {
    const base::SceneLooks::Shape* shape = data_.looks.At(source.mesh);
    if (shape == nullptr) return nullptr;
    const std::size_t first = data_.subMeshes.size();
    for (const base::SceneLooks::Part& part : shape->parts) data_.subMeshes.emplace_back(part.geometry, *part.material);
    Mesh& mesh = data_.meshes.emplace_back();
    mesh.box = &shape->box;
    mesh.subMeshes = std::span(data_.subMeshes).subspan(first);
    if (base::AreNamesKept()) NameParts(mesh, source.name);
    return &mesh;
  }

  static void NameParts(Mesh& mesh, const String& node) {
    for (std::uint32_t i = 0; i < mesh.GetNumSubMeshes(); ++i) {
      base::NameObject(mesh.GetSubMesh(i), node + u'/' + StringConverter::ToString(static_cast<std::int32_t>(i)));
    }
  }

  SimpleScene::Data& data_;
  const SceneData& source_;
  std::vector<Matrix4x4> globals_;
};

}  // namespace

void SimpleScene::Data::Fill(const String& file, const SceneData& source, base::Context& context) {
  engine = &context;
  looks.Make(file, source, context);
  Filler(*this, source).Run();
}

void SimpleScene::Data::Clear() {
  for (base::Instance* instance : instances) instance->Detach();
  instances.clear();
  const bool isEngineThere = engine != nullptr && base::CurrentContext() == engine;
  if (isEngineThere) engine->render.Forget(meshes);
  for (const SubMesh& subMesh : subMeshes) {
    base::ForgetObject(&subMesh);
    base::ForgetObject(&subMesh.GetMaterialParams());
  }
  animations.clear();
  order.clear();
  names.Clear();
  nodes.clear();
  places.clear();
  meshes.clear();
  subMeshes.clear();
  looks.Clear(isEngineThere ? engine->backends.render : nullptr);
  cameras.clear();
  lights.clear();
  restPoses.Clear();
}

bool SimpleScene::Data::IsAtRest() const {
  return std::ranges::none_of(nodes, [](const TMNode& node) { return node.transform.IsOwn(); });
}

}  // namespace qen
