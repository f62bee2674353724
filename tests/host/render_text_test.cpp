// Texts as they come out on the picture.
#include <algorithm>
#include <cmath>

#include "engine/camera.h"
#include "host/fonts/freetype_fonts.h"
#include "tests/host/graphics_test.h"

namespace qen::host {
namespace {

using base::DrawKind;
using base::GlyphStyle;
using base::TextureUse;

class RenderTextTest : public GraphicsTest {
 protected:
  // Adds a text with its pen starting at a point and `scale` units a font pixel.
  void AddText(base::IFontFace& face, StringView text, GlyphStyle style, DrawKind kind, const Vec3& pen,
               const Vec3& right, const Vec3& down, std::uint32_t argb = 0xFFFFFFFF) {
    base::ShapedLine line;
    face.Shape(text, style, line);
    for (const base::Glyph& glyph : line.glyphs) {
      if (glyph.texture == 0) continue;
      base::DrawItem& item = AddRectangle(kind, glyph.left, glyph.top, glyph.right, glyph.bottom, 0.0F, argb);
      item.texture = glyph.texture;
      item.textureUse = style == GlyphStyle::Bitmap ? TextureUse::Coverage : TextureUse::DistanceField;
      for (std::uint32_t i = item.firstVertex; i < item.firstVertex + item.vertexCount; ++i) {
        base::DrawVertex& vertex = list.vertices[i];
        vertex.u = vertex.position.x == glyph.left ? glyph.u0 : glyph.u1;
        vertex.v = vertex.position.y == glyph.top ? glyph.v0 : glyph.v1;
        vertex.position = pen + right * vertex.position.x + down * vertex.position.y;
      }
    }
  }

  void AddText2D(base::IFontFace& face, StringView text, GlyphStyle style, float x, float y, float scale,
                 std::uint32_t argb = 0xFFFFFFFF) {
    AddText(face, text, style, DrawKind::Triangles2D, {x, y, 0.0F}, {scale, 0.0F, 0.0F}, {0.0F, scale, 0.0F}, argb);
  }

  // The most pixels that an edge takes from black to white along a row.
  [[nodiscard]] int WidestEdge(std::int32_t y) const {
    int widest = 0;
    int run = 0;
    for (std::int32_t x = 0; x < picture.width; ++x) {
      const int value = At(x, y).red;
      run = value > 8 && value < 247 ? run + 1 : 0;
      widest = std::max(widest, run);
    }
    return widest;
  }

  [[nodiscard]] int Brightest(std::int32_t y) const {
    int brightest = 0;
    for (std::int32_t x = 0; x < picture.width; ++x) brightest = std::max(brightest, At(x, y).red);
    return brightest;
  }

  FreetypeFonts fonts{renderer->GlyphPages()};
  std::unique_ptr<base::IFontFace> sans = fonts.CreateFace({.face = u"DejaVu Sans", .height = -20});
};

TEST_F(RenderTextTest, DistanceFieldsAreSharpAtEverySize) {
  for (const int em : {30, 100, 700}) {
    ClearFrame();
    const float scale = static_cast<float>(em) / 20.0F;
    AddText2D(*sans, u"H", GlyphStyle::DistanceField, 10.3F, static_cast<float>(em), scale);
    Show(em + 20, em + em / 4);
    const std::int32_t row = em - em / 6;  // through both stems
    EXPECT_EQ(Brightest(row), 255) << em;
    EXPECT_LE(WidestEdge(row), 2) << em;
  }
}

TEST_F(RenderTextTest, StemsHaveTheirTrueWidthAtEverySize) {
  // A stem of the letter I is 0.0985 of the em square wide.
  for (const int em : {100, 400}) {
    ClearFrame();
    AddText2D(*sans, u"I", GlyphStyle::DistanceField, 10.0F, static_cast<float>(em), static_cast<float>(em) / 20.0F);
    Show(em, em + em / 4);
    double width = 0.0;
    const std::int32_t middle = em / 2;
    for (std::int32_t x = 0; x < picture.width; ++x) width += At(x, middle).red / 255.0;
    EXPECT_NEAR(width, 0.0985 * em, 1.0) << em;
  }
}

TEST_F(RenderTextTest, TinyStemsAreEquallyBrightWhereverTheyFall) {
  // Squeezed until stems are half a pixel wide.
  AddText(*sans, u"l l l l l l l l l", GlyphStyle::DistanceField, DrawKind::Triangles2D, {4.0F, 24.0F, 0.0F},
          {0.29F, 0.0F, 0.0F}, {0.0F, 1.0F, 0.0F});
  Show(64, 32);
  std::vector<int> stems;
  for (std::int32_t x = 1; x < 64; ++x) {
    if (At(x - 1, 17).red == 0 && At(x, 17).red != 0) stems.push_back(0);
    if (At(x, 17).red != 0) stems.back() += At(x, 17).red;
  }
  ASSERT_EQ(stems.size(), 9U);
  const auto [darkest, brightest] = std::ranges::minmax(stems);
  EXPECT_GT(darkest, 100);
  EXPECT_LT(brightest, darkest * 1.4);
}

TEST_F(RenderTextTest, TiltedTextIsSharpOnTheRowsNearAndFar) {
  Camera camera;
  camera.SetProjection(1.0F, 80000.0F, 1.0F, 0.7853982F);
  camera.SetLookAt({0.0F, 0.0F, -192.0F}, {}, {0.0F, 1.0F, 0.0F});
  list.layers.back().projection = camera.GetProjection();
  list.layers.back().view = camera.GetView();
  // Turned about the vertical axis by sixty degrees.
  AddText(*sans, u"HHH", GlyphStyle::DistanceField, DrawKind::Triangles3D, {-40.0F, -20.0F, -60.0F}, {1.5F, 0.0F, 2.6F},
          {0.0F, -3.0F, 0.0F});
  Show(400, 400);
  const std::int32_t row = 195;
  EXPECT_GT(Brightest(row), 240);
  EXPECT_LE(WidestEdge(row), 3);
}

TEST_F(RenderTextTest, BitmapsAreDrawnPixelByPixel) {
  AddText2D(*sans, u"H", GlyphStyle::Bitmap, 4.0F, 24.0F, 1.0F);
  Show();
  // Hinted to whole rows: the letter stands on the base line, and its first row is as bright as its last.
  EXPECT_EQ(Brightest(24), 0);
  EXPECT_GT(Brightest(23), 230);
  std::int32_t top = 0;
  while (top < 23 && Brightest(top) == 0) ++top;
  EXPECT_NEAR(24 - top, 14.6, 1.0);
  EXPECT_GT(Brightest(top), 230);
}

TEST_F(RenderTextTest, ColourAndOpacityAreTakenFromTheText) {
  const auto large = fonts.CreateFace({.face = u"DejaVu Sans", .height = -40});
  for (const GlyphStyle style : {GlyphStyle::Bitmap, GlyphStyle::DistanceField}) {
    ClearFrame();
    AddRectangle(DrawKind::Triangles2D, 0.0F, 0.0F, 64.0F, 64.0F, 0.0F, 0xFF0000FF);
    AddText2D(*large, u"\u2588", style, 8.0F, 48.0F, 1.0F, 0x80FF0000);  // a full block
    Show(64, 64);
    EXPECT_THAT(At(20, 40), IsNear(Rgb{188, 0, 188}, 2));
    EXPECT_EQ(At(2, 2), kBlue);
  }
}

TEST_F(RenderTextTest, LightAndDarkTextsAreEquallyBold) {
  const auto ink = [this](std::uint32_t paper, std::uint32_t color) {
    ClearFrame();
    AddRectangle(DrawKind::Triangles2D, 0.0F, 0.0F, 100.0F, 32.0F, 0.0F, paper);
    AddText2D(*sans, u"minimum", GlyphStyle::Bitmap, 4.0F, 24.0F, 1.0F, color);
    Show(100, 32);
    double sum = 0.0;
    for (std::int32_t y = 0; y < 32; ++y) {
      for (std::int32_t x = 0; x < 100; ++x) sum += std::abs(At(x, y).red - At(0, 0).red);
    }
    return sum;
  };
  const double bright = ink(0xFF000000, 0xFFFFFFFF);
  const double dark = ink(0xFFFFFFFF, 0xFF000000);
  EXPECT_NEAR(dark / bright, 1.0, 0.15);
}

}  // namespace
}  // namespace qen::host
