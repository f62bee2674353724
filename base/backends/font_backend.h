// Faces of fonts and shaping of text.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "engine/font.h"
#include "engine/types.h"

namespace qen::base {

struct FontRequest {
  String face;
  std::int32_t height = 0;  // negative: pixels of the em square; positive: of the cell; 0: a default
  std::int32_t width = 0;   // average character width in pixels, 0: the face's own proportions
  std::int32_t weight = 400;
  bool italic = false;
};

enum class GlyphStyle : std::uint8_t {
  Bitmap,         // coverage at exactly the font's pixel size, for 2D
  DistanceField,  // signed distances, for any size and angle
};

// One glyph's quad. Positions are font pixels right and down of the pen's start on the base line.
struct Glyph {
  float left = 0.0F, top = 0.0F, right = 0.0F, bottom = 0.0F;
  float u0 = 0.0F, v0 = 0.0F, u1 = 0.0F, v1 = 0.0F;  // of left top and right bottom
  std::uint32_t texture = 0;                         // 0: nothing to draw (a blank)
};

// A line in visual order.
struct ShapedLine {
  std::vector<Glyph> glyphs;
  float width = 0.0F;        // font pixels, trailing blanks included
  bool rightToLeft = false;  // it begins at the right
};

class IFontFace {
 public:
  virtual ~IFontFace() = default;
  [[nodiscard]] virtual TextMetric Metric() const = 0;

  // The family that stands in for the one asked for; empty when it is that one.
  [[nodiscard]] virtual String Substitute() const { return {}; }

  // Whether it, or a face that stands in for what it lacks, has a picture of the character.
  [[nodiscard]] virtual bool Has(char32_t) { return true; }

  // Shapes one line (no line feeds; bidirectional order, combining marks, kerning and fallback faces included). `line`
  // is cleared first and keeps its storage.
  virtual void Shape(StringView text, GlyphStyle style, ShapedLine& line) = 0;

  // Pen position in font pixels behind each UTF-16 unit of a line, in logical order (for wrapping): `ends` gets one
  // value a unit, growing; units of one cluster share the cluster's end.
  virtual void Measure(StringView text, std::vector<float>& ends) = 0;
};

class IFontBackend {
 public:
  virtual ~IFontBackend() = default;
  // Falls back to another face when the one asked for is missing; null when there is none at all.
  virtual std::unique_ptr<IFontFace> CreateFace(const FontRequest& request) = 0;
};

}  // namespace qen::base
