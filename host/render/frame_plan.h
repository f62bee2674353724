// What a frame shows, cut into as few draws as its order allows.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "base/draw_list.h"
#include "engine/material.h"
#include "host/render/mesh_lights.h"

namespace qen::host {

// Where a mesh stands: the columns of its world matrix that make x, y and z.
struct MeshPlace {
  std::array<float, 12> columns{};
};

// Where a text stands, in the world or, in 2D, in pixels.
struct TextPlace {
  std::uint32_t content = 0;  // as GlyphRun's
  std::uint32_t count = 0;    // of glyphs
  std::uint32_t argb = 0;
  Vec3 origin;
  Vec3 right;  // a font pixel to the right
  Vec3 down;

  friend bool operator==(const TextPlace&, const TextPlace&) = default;
};

enum class BatchKind : std::uint8_t { Meshes, Triangles, Lines, Glyphs };

// One draw.
struct Batch {
  BatchKind kind = BatchKind::Meshes;
  base::TextureUse textureUse = base::TextureUse::Color;  // but of meshes
  bool mirrored = false;                                  // of meshes
  std::uint32_t name = 0;                                 // the geometry of meshes, the texture of others
  std::uint32_t material = 0;                             // of meshes: positions in the plan
  std::uint32_t light = 0;
  std::uint32_t first = 0;  // place of a mesh, vertex or glyph
  std::uint32_t count = 0;

  friend bool operator==(const Batch&, const Batch&) = default;
};

// Positions of batches: from `begin` to `blended` solid meshes in any order, to `flat` what is blended in this order,
// to `end` what is in pixels, in this order.
struct PlannedLayer {
  Matrix4x4 view = Matrix4x4::Identity;
  Matrix4x4 projection = Matrix4x4::Identity;
  std::uint32_t begin = 0;
  std::uint32_t blended = 0;
  std::uint32_t flat = 0;
  std::uint32_t end = 0;
};

// Holds all that the picture depends on but the contents of textures and geometries.
struct FramePlan {
  std::vector<PlannedLayer> layers;
  std::vector<Batch> batches;
  std::vector<MaterialParams> materials;
  std::vector<MeshLights> lights;
  std::vector<MeshPlace> places;
  std::vector<base::DrawVertex> vertices;      // in the world or in pixels
  std::vector<TextPlace> texts;                // in the order of their glyphs
  std::vector<const base::GlyphQuad*> glyphs;  // of the texts; not a part of the picture, as their contents are

  void Clear();
  [[nodiscard]] bool ShowsTheSameAs(const FramePlan& other) const;
};

}  // namespace qen::host
