#include "host/scenes/gltf_meshes.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <nlohmann/json.hpp>
#include <numeric>
#include <optional>
#include <string>

#include "host/scenes/triangles.h"

namespace qen::host {
namespace {

using base::SubMeshData;
using base::Vertex;

struct Mode {
  std::size_t number;
  Triangulation triangles;
};
constexpr std::size_t kTriangleList = 4;
constexpr std::size_t kLastMode = 6;
constexpr std::array kModes{Mode{kTriangleList, Triangulation::List}, Mode{5, Triangulation::Strip},
                            Mode{6, Triangulation::Fan}};

// Nothing for points and lines.
std::optional<Triangulation> ReadMode(const Json& primitive) {
  const std::size_t number = Index(primitive, "mode").value_or(kTriangleList);
  if (number > kLastMode) throw GltfError("there is no primitive mode " + std::to_string(number));
  const auto* const found = std::ranges::find(kModes, number, &Mode::number);
  return found == kModes.end() ? std::nullopt : std::optional(found->triangles);
}

std::uint8_t ToByte(float value) {
  return static_cast<std::uint8_t>(std::lround(std::clamp(value, 0.0F, 1.0F) * 255.0F));
}

class PrimitiveReader {
 public:
  PrimitiveReader(const Json& primitive, GltfAccessors& accessors) : primitive_(primitive), accessors_(accessors) {}

  SubMeshData Read(Triangulation how) {
    SubMeshData subMesh;
    ReadPositions(subMesh.vertices);
    const bool hasNormals = ReadNormals(subMesh.vertices);
    ReadTextureCoordinates("TEXCOORD_0", &Vertex::u, &Vertex::v, subMesh.vertices);
    ReadTextureCoordinates("TEXCOORD_1", &Vertex::u2, &Vertex::v2, subMesh.vertices);
    ReadColors(subMesh.vertices);
    subMesh.indices = ToTriangles(ReadIndices(subMesh.vertices.size()), how);
    if (!hasNormals) MakeFlat(subMesh);
    return subMesh;
  }

 private:
  // The accessor of an attribute; nothing when the primitive has no such attribute.
  std::optional<std::size_t> Attribute(const char* name) const {
    const Json* attributes = Member(primitive_, "attributes");
    return attributes == nullptr ? std::nullopt : Index(*attributes, name);
  }

  // The values of an attribute; empty when there is none.
  std::vector<float> Values(const char* name, std::size_t components, std::size_t vertices) {
    const auto accessor = Attribute(name);
    if (!accessor) return {};
    std::vector<float> values = accessors_.Floats(*accessor, components);
    if (values.size() != vertices * components) throw GltfError(std::string(name) + " does not have a value a vertex");
    return values;
  }

  void ReadPositions(std::vector<Vertex>& vertices) {
    const auto accessor = Attribute("POSITION");
    if (!accessor) throw GltfError("a primitive has no positions");
    const std::vector<float> values = accessors_.Floats(*accessor, 3);
    vertices.resize(values.size() / 3);
    for (std::size_t i = 0; i < vertices.size(); ++i) {
      vertices[i].position = {values[3 * i], values[3 * i + 1], values[3 * i + 2]};
    }
  }

  bool ReadNormals(std::vector<Vertex>& vertices) {
    const std::vector<float> values = Values("NORMAL", 3, vertices.size());
    if (values.empty()) return false;
    for (std::size_t i = 0; i < vertices.size(); ++i) {
      vertices[i].normal = {values[3 * i], values[3 * i + 1], values[3 * i + 2]};
    }
    return true;
  }

  void ReadTextureCoordinates(const char* name, float Vertex::*u, float Vertex::*v, std::vector<Vertex>& vertices) {
    const std::vector<float> values = Values(name, 2, vertices.size());
    if (values.empty()) return;
    for (std::size_t i = 0; i < vertices.size(); ++i) {
      vertices[i].*u = values[2 * i];
      vertices[i].*v = values[2 * i + 1];
    }
  }

  void ReadColors(std::vector<Vertex>& vertices) {
    const auto accessor = Attribute("COLOR_0");
    if (!accessor) return;
    const std::size_t components = accessors_.Components(*accessor);
    if (components < 3) throw GltfError("COLOR_0 has elements of the wrong kind");
    const std::vector<float> values = Values("COLOR_0", components, vertices.size());
    for (std::size_t i = 0; i < vertices.size(); ++i) {
      for (std::size_t c = 0; c < components; ++c) vertices[i].color[c] = ToByte(values[i * components + c]);
    }
  }

  std::vector<std::uint32_t> ReadIndices(std::size_t vertices) {
    const auto accessor = Index(primitive_, "indices");
    std::vector<std::uint32_t> indices(accessor ? 0 : vertices);
    if (accessor) {
      indices = accessors_.Indices(*accessor);
    } else {
      std::iota(indices.begin(), indices.end(), 0U);
    }
    if (std::ranges::any_of(indices, [vertices](std::uint32_t index) { return index >= vertices; })) {
      throw GltfError("an index is that of no vertex");
    }
    return indices;
  }

  const Json& primitive_;
  GltfAccessors& accessors_;
};

}  // namespace

std::vector<std::vector<SubMeshData>> ReadMeshes(const GltfDocument& document, GltfAccessors& accessors) {
  std::vector<std::vector<SubMeshData>> meshes;
  for (const Json& mesh : Elements(document.Root(), "meshes")) {
    std::vector<SubMeshData>& subMeshes = meshes.emplace_back();
    for (const Json& primitive : Elements(mesh, "primitives")) {
      const auto triangles = ReadMode(primitive);
      if (!triangles) continue;
      subMeshes.push_back(PrimitiveReader(primitive, accessors).Read(*triangles));
      subMeshes.back().material = document.Position(primitive, "material", "materials");
    }
  }
  return meshes;
}

}  // namespace qen::host
