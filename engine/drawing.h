// Immediate drawing of texts, quads and boxes.
#pragma once

#include <cstdint>

#include "engine/aabb.h"
#include "engine/color.h"
#include "engine/matrix.h"
#include "engine/rect.h"
#include "engine/types.h"

namespace qen {

class Font;
class Material;
class MaterialParams;

// Text format flags.
inline constexpr std::uint32_t DT_CENTER = 0x1;
inline constexpr std::uint32_t DT_WORDBREAK = 0x10;
inline constexpr std::uint32_t DT_SINGLELINE = 0x20;
inline constexpr std::uint32_t DT_EXPANDTABS = 0x40;
inline constexpr std::uint32_t DT_NOCLIP = 0x100;

// 2D coordinates are pixels of the viewport, y down. Calls outside their begin and end, and null fonts, draw nothing.
// Texts given with a format use IOutput's formats; others are drawn as they are.
//
// 3D text lies in the x-z plane of its matrix. The matrix's origin is the lower left corner of the first line's cell,
// further lines go down. Rectangles are in whole world units: the width wraps and centres, and unless DT_NOCLIP lines
// of right-to-left text begin at its right, and top and bottom are the window of the text that is visible.
class QEN_API Drawing {
 public:
  Drawing();
  ~Drawing();
  Drawing(const Drawing&) = delete;
  Drawing& operator=(const Drawing&) = delete;

  void BeginText2D();
  void BeginText3D(float scale);  // world units a font pixel
  void SetFont(Font* font);
  void EndText();

  // The size of a text laid out in `area` (its width wraps with DT_WORDBREAK). Pixels in 2D. In 3D it is in 1/38 of a
  // world unit, and one line less a 38th higher than the text: what of it does not fit a box, divided by the height of
  // a line and cut down, is then how many lines must go until the last one is seen whole.
  Rect GetTextRect(const Rect& area, std::uint32_t flags, const Char* format, ...);

  // (x, y) is the upper left corner of the line's cell. The text is one line, as DT_SINGLELINE measures it: a line feed
  // or a tab in it is a blank.
  void DrawText2D(std::int32_t x, std::int32_t y, Color color, const Char* format, ...);

  void DrawText3D(const Matrix4x4& matrix, const Rect& area, std::uint32_t flags, Color color, const Char* text);
  void DrawText3D(const Matrix4x4& matrix, float width, float height, std::uint32_t flags, Color color,
                  const Char* text);

  // The quads in between are drawn with the picture of slot 1 of the parameters, which must stay until EndQuads.
  void BeginQuads2D(Material* material, const MaterialParams& params);
  void DrawQuad2D(std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom, Color color);
  void BeginQuads3D(Material* material, const MaterialParams& params);
  void DrawQuad3D(const Vec3& leftTop, const Vec3& rightTop, const Vec3& leftBottom, const Vec3& rightBottom,
                  Color color);
  void EndQuads();

  void SetWorldMatrix(const Matrix4x4& world);  // for boxes and 3D quads; the identity at first
  void DrawAABB(const AABB& box, Color color);  // its edges, opaque

 private:
  enum class Mode : std::uint8_t { None, Text2D, Text3D, Quads2D, Quads3D };

  Matrix4x4 world_;
  Font* font_ = nullptr;
  const MaterialParams* params_ = nullptr;
  float scale_ = 1.0F;
  Mode mode_ = Mode::None;
};

}  // namespace qen
