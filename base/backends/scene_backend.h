// Scene and animation files in memory, in glTF's space: right-handed, y up, units of the file.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "base/backends/image.h"
#include "engine/light.h"
#include "engine/material.h"
#include "engine/types.h"
#include "engine/vec.h"

namespace qen::base {

struct Quaternion {
  float x = 0.0F, y = 0.0F, z = 0.0F, w = 1.0F;
};

struct Pose {
  Vec3 translation;
  Quaternion rotation;
  Vec3 scale{1.0F, 1.0F, 1.0F};
};

struct Vertex {
  Vec3 position;
  Vec3 normal;
  float u = 0.0F, v = 0.0F;
  float u2 = 0.0F, v2 = 0.0F;                             // the second set, of which some textures of materials are
  std::array<std::uint8_t, 4> color{255, 255, 255, 255};  // linear rgba, multiplied with the base colour
};

struct SubMeshData {
  std::vector<Vertex> vertices;
  std::vector<std::uint32_t> indices;  // triangles, counter-clockwise from the front
  std::int32_t material = -1;          // position in SceneData::materials, -1: a plain one
};

struct MaterialData {
  MaterialParams params;                                                    // without textures
  std::array<std::int32_t, TEXTURE_SLOT_COUNT> images{-1, -1, -1, -1, -1};  // by slot, in SceneData::images, -1: none
};

struct NodeData {
  String name;
  std::int32_t parent = -1;                    // earlier position, -1: a root
  Pose pose;                                   // relative to the parent
  std::int32_t mesh = -1;                      // position in SceneData::meshes
  std::optional<std::array<float, 3>> camera;  // vertical angle in radians, near plane, far plane
  std::optional<Light> light;                  // stands where the node does and shines along its -z
};

struct SceneData {
  std::vector<NodeData> nodes;  // depth first, parents before children
  std::vector<std::vector<SubMeshData>> meshes;
  std::vector<MaterialData> materials;
  std::vector<Image> images;
  std::optional<Vec3> ambient;  // even light from all sides instead of the usual surroundings
  std::vector<String> undrawn;  // what else the file uses, in a few words each
};

enum class Interpolation : std::uint8_t { Step, Linear, Cubic };

// Keys of one property: `times` in seconds, growing; a value a key, or for Cubic three (in-tangent, value,
// out-tangent).
template <class T>
struct Track {
  std::vector<float> times;
  std::vector<T> values;
  Interpolation interpolation = Interpolation::Linear;
};

struct NodeTracks {
  String node;
  Track<Vec3> translation;
  Track<Quaternion> rotation;
  Track<Vec3> scale;
};

struct AnimationData {
  std::vector<NodeTracks> nodes;
  float seconds = 0.0F;  // time of the last key
};

class ISceneBackend {
 public:
  virtual ~ISceneBackend() = default;

  // `file` is only for files that name others beside them; `bytes` is its content. Nothing on failure; `error` then
  // says why in one line.
  virtual std::optional<SceneData> ParseScene(StringView file, std::span<const std::uint8_t> bytes, bool withTextures,
                                              String& error) = 0;
  virtual std::optional<AnimationData> ParseAnimation(StringView file, std::span<const std::uint8_t> bytes,
                                                      String& error) = 0;
  virtual std::optional<Image> ParseImage(std::span<const std::uint8_t> bytes) = 0;
};

}  // namespace qen::base
