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

// A glyph of a text: font pixels right and down of where the text begins, and its part of the texture.
struct GlyphQuad {
  float left = 0.0F, top = 0.0F, right = 0.0F, bottom = 0.0F;
  float u0 = 0.0F, v0 = 0.0F, u1 = 0.0F, v1 = 0.0F;  // of left top and right bottom
};

enum class DrawKind : std::uint8_t {
  Mesh,         // `subMesh`
  Triangles3D,  // vertices by threes, blended, tested against depth but not written to it
  Lines3D,      // vertices by twos
  Triangles2D,  // vertices by threes, blended, over everything before
  Text3D,       // glyphs, drawn as Triangles3D are
  Text2D,       // glyphs, drawn as Triangles2D are
};

enum class TextureUse : std::uint8_t { Color, Coverage, DistanceField };  // the latter two: in the alpha of the texture

// The glyphs of a text that have one texture. They stay until the next frame begins.
struct GlyphRun {
  const GlyphQuad* quads = nullptr;
  std::uint32_t count = 0;
  std::uint32_t content = 0;  // runs with the same number have the same quads; never 0
  std::uint32_t argb = 0;     // sRGB
  float pixel = 1.0F;         // world units a font pixel; 1 in 2D
  Vec3 origin;                // where the text begins; 2D: pixels, y down; 3D: local to the item's world matrix, where
                              // right is x and down is -z
};

struct DrawItem {
  DrawKind kind = DrawKind::Mesh;
  TextureUse textureUse = TextureUse::Color;
  std::uint32_t texture = 0;      // 0: plain white
  std::uint32_t firstVertex = 0;  // of the list's
  std::uint32_t vertexCount = 0;
  float distance = 0.0F;  // from the camera's plane; larger is farther
  const SubMesh* subMesh = nullptr;
  const LightList* lights = nullptr;  // of a mesh
  GlyphRun glyphs;                    // of a text
  Matrix4x4 world = Matrix4x4::Identity;
};

// What is drawn with one camera. Layers follow each other, the depth is cleared between them; inside a layer opaque
// meshes come first and the blended items from far to near, equal ones in order. Triangles2D and Text2D are drawn last,
// in order.
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

  // Turns texts into triangles, so that what is drawn outlives the frame.
  QEN_API void SpellOutTexts();

  void Clear() {
    layers.clear();
    items.clear();
    vertices.clear();
  }
};

}  // namespace qen::base
