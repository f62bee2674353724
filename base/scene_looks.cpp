#include "base/scene_looks.h"

#include <algorithm>
#include <cstring>
#include <functional>
#include <string_view>
#include <unordered_map>

#include "base/backends/render_backend.h"
#include "base/context.h"
#include "base/pose.h"
#include "base/scene_boxes.h"
#include "engine/string_converter.h"

namespace qen::base {
namespace {

// The entry at a position that a file gave, which may be anything.
template <class T>
const T* EntryAt(const std::vector<T>& entries, std::int32_t position) {
  const bool inside = position >= 0 && static_cast<std::size_t>(position) < entries.size();
  return inside ? &entries[static_cast<std::size_t>(position)] : nullptr;
}

template <class T>
std::string_view Bytes(const std::vector<T>& entries) {
  static_assert(std::has_unique_object_representations_v<T> || sizeof(T) == 44, "bytes that mean nothing");
  return {reinterpret_cast<const char*>(entries.data()), entries.size() * sizeof(T)};
}

void Mix(std::size_t& hash, std::size_t more) { hash = hash * 31 + more; }

std::vector<Vertex> InLocalSpace(std::vector<Vertex> vertices) {
  for (Vertex& vertex : vertices) {
    vertex.position = ToLocal(vertex.position);
    vertex.normal = ToLocal(vertex.normal);
  }
  return vertices;
}

bool AreIndicesSound(const SubMeshData& subMesh) {
  return std::ranges::all_of(subMesh.indices, [&](std::uint32_t i) { return i < subMesh.vertices.size(); });
}

// Makes the renderer's geometries, those of the same content once.
class GeometryMaker {
 public:
  GeometryMaker(IRenderBackend* render, std::vector<std::uint32_t>& made) : render_(render), made_(made) {}

  std::uint32_t Make(const SubMeshData& subMesh) {
    if (render_ == nullptr || !AreIndicesSound(subMesh)) return 0;
    const auto [known, isNew] = names_.try_emplace(&subMesh, 0);
    if (!isNew) return known->second;
    known->second = render_->CreateGeometry(InLocalSpace(subMesh.vertices), subMesh.indices);
    if (known->second != 0) made_.push_back(known->second);
    return known->second;
  }

 private:
  struct Hash {
    std::size_t operator()(const SubMeshData* subMesh) const {
      std::size_t hash = std::hash<std::string_view>{}(Bytes(subMesh->vertices));
      Mix(hash, std::hash<std::string_view>{}(Bytes(subMesh->indices)));
      return hash;
    }
  };

  struct IsSame {
    bool operator()(const SubMeshData* a, const SubMeshData* b) const {
      return Bytes(a->vertices) == Bytes(b->vertices) && a->indices == b->indices;
    }
  };

  IRenderBackend* render_;
  std::vector<std::uint32_t>& made_;
  std::unordered_map<const SubMeshData*, std::uint32_t, Hash, IsSame> names_;
};

}  // namespace

std::size_t SceneLooks::HashOfMaterial::operator()(const MaterialParams& params) const {
  std::size_t hash = std::hash<const void*>{}(params.GetTexture(TEXTURE_SLOT_1));
  for (const float part : params.baseColor) Mix(hash, std::hash<float>{}(part));
  for (const float part : params.emissive) Mix(hash, std::hash<float>{}(part));
  for (const float part : {params.metallic, params.roughness}) Mix(hash, std::hash<float>{}(part));
  return hash;
}

void SceneLooks::Make(const String& file, const SceneData& source, Context& context) {
  MakeTextures(file, source, context);
  const std::vector<const MaterialParams*> materials = MakeMaterials(source);
  const MaterialParams* const plain = &*materials_.emplace().first;
  GeometryMaker geometries(context.backends.render, geometries_);
  shapes_.reserve(source.meshes.size());
  for (const std::vector<SubMeshData>& mesh : source.meshes) {
    Shape& shape = shapes_.emplace_back(Shape{BoxOf(mesh), {}});
    for (const SubMeshData& subMesh : mesh) {
      const auto* const* material = EntryAt(materials, subMesh.material);
      shape.parts.push_back({geometries.Make(subMesh), material == nullptr ? plain : *material});
    }
  }
}

const SceneLooks::Shape* SceneLooks::At(std::int32_t mesh) const { return EntryAt(shapes_, mesh); }

void SceneLooks::MakeTextures(const String& file, const SceneData& source, Context& context) {
  for (const Image& image : source.images) {
    const String name = file + u'#' + StringConverter::ToString(static_cast<std::int32_t>(textures_.size()));
    textures_.push_back(std::make_unique<TextureObject>(name, kDefaultGroup, image, context));
  }
}

std::vector<const MaterialParams*> SceneLooks::MakeMaterials(const SceneData& source) {
  std::vector<const MaterialParams*> materials;
  materials.reserve(source.materials.size());
  for (const MaterialData& material : source.materials) {
    MaterialParams params = material.params;
    for (std::uint32_t slot = 0; slot < TEXTURE_SLOT_COUNT; ++slot) {
      params.AddTexture(static_cast<TEXTURE_SLOT>(slot), TextureAt(material.images[slot]));
    }
    materials.push_back(&*materials_.insert(params).first);
  }
  return materials;
}

Texture* SceneLooks::TextureAt(std::int32_t image) const {
  const auto* texture = EntryAt(textures_, image);
  return texture == nullptr ? nullptr : texture->get();
}

void SceneLooks::Clear(IRenderBackend* render) {
  if (render != nullptr) {
    for (const std::uint32_t geometry : geometries_) render->DestroyGeometry(geometry);
  }
  geometries_.clear();
  textures_.clear();
  materials_.clear();
  shapes_.clear();
}

}  // namespace qen::base
