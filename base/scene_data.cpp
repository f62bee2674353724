#include "base/scene_data.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "base/backends/render_backend.h"
#include "base/context.h"
#include "base/instance.h"
#include "base/record.h"
#include "base/scene_boxes.h"
#include "base/utf.h"
#include "engine/string_converter.h"

namespace qen {
namespace {

using base::MaterialData;
using base::NodeData;
using base::SceneData;
using base::SubMeshData;
using base::Vertex;

// The entry at a position that a file gave, which may be anything.
template <class T>
const T* At(const std::vector<T>& entries, std::int32_t position) {
  const bool inside = position >= 0 && static_cast<std::size_t>(position) < entries.size();
  return inside ? &entries[static_cast<std::size_t>(position)] : nullptr;
}

std::vector<Vertex> ToLocal(std::vector<Vertex> vertices) {
  for (Vertex& vertex : vertices) {
    vertex.position = base::ToLocal(vertex.position);
    vertex.normal = base::ToLocal(vertex.normal);
  }
  return vertices;
}

bool AreIndicesSound(const SubMeshData& subMesh) {
  return std::ranges::all_of(subMesh.indices, [&](std::uint32_t i) { return i < subMesh.vertices.size(); });
}

// Makes nodes and renderer objects out of a scene file, in the order that these depend on each other.
class Filler {
 public:
  Filler(SimpleScene::Data& data, const String& file, const SceneData& source, base::Context& context)
      : data_(data), file_(file), source_(source), context_(context) {}

  void Run() {
    MakeTextures();
    MakeGeometries();
    MakeNodes();
    MakeAmbient();
  }

 private:
  void MakeTextures() {
    for (const base::Image& image : source_.images) {
      const String name = file_ + u'#' + StringConverter::ToString(static_cast<std::int32_t>(data_.textures.size()));
      data_.textures.push_back(std::make_unique<base::TextureObject>(name, kDefaultGroup, image, context_));
    }
  }

  void MakeGeometries() {
    for (const auto& mesh : source_.meshes) {
      auto& names = geometries_.emplace_back();
      for (const SubMeshData& subMesh : mesh) names.push_back(MakeGeometry(subMesh));
    }
  }

  std::uint32_t MakeGeometry(const SubMeshData& subMesh) {
    base::IRenderBackend* render = context_.backends.render;
    if (render == nullptr || !AreIndicesSound(subMesh)) return 0;
    const std::uint32_t name = render->CreateGeometry(ToLocal(subMesh.vertices), subMesh.indices);
    if (name != 0) data_.geometries.push_back(name);
    return name;
  }

  void MakeNodes() {
    data_.nodes = std::vector<TMNode>(source_.nodes.size());
    data_.meshes.reserve(source_.nodes.size());
    std::vector<Matrix4x4> globals(source_.nodes.size());
    for (std::size_t i = 0; i < source_.nodes.size(); ++i) {
      const NodeData& source = source_.nodes[i];
      TMNode& node = data_.nodes[i];
      node.name = source.name;
      node.position = static_cast<std::uint32_t>(i);
      globals[i] = base::ToMatrix(source.pose);
      if (source.parent >= 0 && static_cast<std::size_t>(source.parent) < i) {
        node.parent = static_cast<std::uint32_t>(source.parent);
        globals[i] = globals[i] * globals[node.parent];
      }
      node.transform = base::ToWorld(globals[i]);
      node.inverseTransform = node.transform.Inverse();
      node.mesh = MakeMesh(source);
      node.cameraParameters = MakeCamera(source);
      if (source.light) data_.lights.push_back({*source.light, node.position});
      data_.order.push_back(&node);
      data_.restPose.push_back(source.pose);
      data_.byName.emplace(node.name, static_cast<std::uint32_t>(i));
    }
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
    const std::vector<SubMeshData>* subMeshes = At(source_.meshes, source.mesh);
    if (subMeshes == nullptr) return nullptr;
    Mesh& mesh = data_.meshes.emplace_back();
    mesh.box = base::BoxOf(*subMeshes);
    mesh.subMeshes.resize(subMeshes->size());
    for (std::size_t i = 0; i < subMeshes->size(); ++i) {
      SubMesh& subMesh = mesh.subMeshes[i];
      subMesh.geometry = geometries_[static_cast<std::size_t>(source.mesh)][i];
      ApplyMaterial((*subMeshes)[i].material, subMesh.GetMaterialParams());
      const String name = source.name + u'/' + StringConverter::ToString(static_cast<std::int32_t>(i));
      base::NameObject(&subMesh, name);
      base::NameObject(&subMesh.GetMaterialParams(), name);
    }
    return &mesh;
  }

  void ApplyMaterial(std::int32_t position, MaterialParams& params) {
    const MaterialData* material = At(source_.materials, position);
    if (material == nullptr) return;
    params = material->params;
    for (std::uint32_t slot = 0; slot < TEXTURE_SLOT_COUNT; ++slot) {
      params.AddTexture(static_cast<TEXTURE_SLOT>(slot), TextureAt(material->images[slot]));
    }
  }

  [[nodiscard]] Texture* TextureAt(std::int32_t image) const {
    const auto* texture = At(data_.textures, image);
    return texture == nullptr ? nullptr : texture->get();
  }

  SimpleScene::Data& data_;
  const String& file_;
  const SceneData& source_;
  base::Context& context_;
  std::vector<std::vector<std::uint32_t>> geometries_;  // by mesh and sub-mesh
};

}  // namespace

void SimpleScene::Data::Fill(const String& file, const base::SceneData& source, base::Context& context) {
  engine = &context;
  Filler(*this, file, source, context).Run();
}

void SimpleScene::Data::Clear() {
  for (base::Instance* instance : instances) instance->Detach();
  instances.clear();
  if (engine != nullptr && base::CurrentContext() == engine) {
    engine->render.Forget(meshes);
    for (const std::uint32_t geometry : geometries) engine->backends.render->DestroyGeometry(geometry);
  }
  for (Mesh& mesh : meshes) {
    for (SubMesh& subMesh : mesh.subMeshes) {
      base::ForgetObject(&subMesh);
      base::ForgetObject(&subMesh.GetMaterialParams());
    }
  }
  geometries.clear();
  textures.clear();
  animations.clear();
  byName.clear();
  order.clear();
  nodes.clear();
  meshes.clear();
  cameras.clear();
  lights.clear();
  restPose.clear();
}

std::int32_t SimpleScene::Data::Find(StringView name) const {
  const auto found = byName.find(name);
  return found == byName.end() ? -1 : static_cast<std::int32_t>(found->second);
}

}  // namespace qen
