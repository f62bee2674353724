// Everything that one frame shows, in order, for a render backend.
#pragma once

#include <cstdint>
#include <vector>

#include "engine/matrix.h"
#include "engine/scene_instance.h"

namespace qen::base {

struct DrawVertex {
  Vec3 position;  // 2D: pixels, y down; 3D: local to the item's world matrix
  float u = 0.0F, v = 0.0F;
  std::uint32_t argb = 0xFFFFFFFF;  // sRGB, multiplied with the texture
};

enum class DrawKind : std::uint8_t {
  Mesh,         // `entry`
  Triangles3D,  // vertices by threes, blended, tested against depth but not written to it
  Lines3D,      // vertices by twos
  Triangles2D,  // vertices by threes, blended, over everything before
};

enum class TextureUse : std::uint8_t { Color, Coverage, DistanceField };  // the latter two: in the alpha of the texture

struct DrawItem {
  DrawKind kind = DrawKind::Mesh;
  TextureUse textureUse = TextureUse::Color;
  std::uint32_t texture = 0;  // 0: plain white
  std::uint32_t firstVertex = 0;
  std::uint32_t vertexCount = 0;
  const DrawVertex* shared = nullptr;  // its vertices when they are not the list's; stay until the next frame begins
  std::uint32_t sharedArgb = 0;        // their colour, instead of each one's
  float distance = 0.0F;               // from the camera's plane; larger is farther
  RenderEntry entry;
  Matrix4x4 world = Matrix4x4::Identity;
};

// What is drawn with one camera. Layers follow each other, the depth is cleared between them; inside a layer opaque
// meshes come first and the blended items from far to near, equal ones in order. Triangles2D are drawn last, in order.
struct DrawLayer {
  Matrix4x4 projection = Matrix4x4::Identity;  // depth 0 to 1
  Matrix4x4 view = Matrix4x4::Identity;
  std::uint32_t firstItem = 0;
  std::uint32_t itemCount = 0;
};

// Cleared, not freed, from frame to frame.
struct DrawList {
  std::vector<DrawLayer> layers;
  std::vector<DrawItem> items;
  std::vector<DrawVertex> vertices;

  // Copies shared vertices, in their colour, so that all are the list's.
  void OwnVertices() {
    for (DrawItem& item : items) {
      if (item.shared == nullptr) continue;
      item.firstVertex = static_cast<std::uint32_t>(vertices.size());
      vertices.insert(vertices.end(), item.shared, item.shared + item.vertexCount);
      for (std::size_t i = item.firstVertex; i < vertices.size(); ++i) vertices[i].argb = item.sharedArgb;
      item.shared = nullptr;
    }
  }

  void Clear() {
    layers.clear();
    items.clear();
    vertices.clear();
  }
};

}  // namespace qen::base
