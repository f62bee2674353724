#include "engine/drawing.h"

#include <gtest/gtest.h>

#include "base/recording/recording_engine.h"
#include "base/utf.h"
#include "engine/font.h"
#include "engine/material.h"
#include "engine/render.h"
#include "engine/system.h"
#include "engine/texture.h"

namespace qen::base {
namespace {

constexpr std::uint32_t kWrap = DT_WORDBREAK | DT_EXPANDTABS;

// The test font has cells of 20 x 10 pixels, its base line 16 below the top.
class DrawingTest : public testing::Test {
 protected:
  DrawingTest() { drawing.SetFont(font); }

  // What a text looks like wrapped at `columns` characters, a line of marks for each line: "##.#" where blanks are
  // dots.
  std::vector<std::string> Wrapped(const Char* text, float columns, std::uint32_t flags = kWrap) {
    engine.Draw([&] {
      drawing.BeginText3D(1.0F);
      drawing.DrawText3D(Matrix4x4::Identity, columns * 10.0F, 1e6F, flags, Color(0), text);
      drawing.EndText();
    });
    std::vector<std::string> lines;
    const auto& vertices = engine.render.frame.vertices;
    for (std::size_t i = 0; i < vertices.size(); i += 6) {
      const auto row = static_cast<std::size_t>((20.0F - vertices[i].position.z) / 20.0F);
      const auto column = static_cast<std::size_t>(vertices[i].position.x / 10.0F);
      if (lines.size() <= row) lines.resize(row + 1);
      lines[row].resize(std::max(lines[row].size(), column + 1), '.');
      lines[row][column] = '#';
    }
    return lines;
  }

  // The corners of a text drawn in this window.
  const std::vector<DrawVertex>& Draw3D(const Rect& window, const Char* text, std::uint32_t flags = 0,
                                        float scale = 1.0F) {
    engine.Draw([&] {
      drawing.BeginText3D(scale);
      drawing.DrawText3D(Matrix4x4::Identity, window, flags, Color(1), text);
    });
    return engine.render.frame.vertices;
  }

  Rect Measured(std::uint32_t flags, std::int16_t width, const Char* text) {
    return drawing.GetTextRect({0, 0, width, 0}, flags, u"%s", text);
  }

  RecordingEngine engine;
  Font* font = FontManager::GetSingleton()->CreateEx(u"Test", -20, 0, 400, false, 1, kDefaultGroup);
  Drawing drawing;
};

using Lines = std::vector<std::string>;

TEST_F(DrawingTest, BreaksLines) {
  const struct {
    const Char* text;
    float columns;
    Lines lines;
  } kCases[] = {
      {u"abc def", 7, {"###.###"}},
      {u"abc def", 6, {"###", "###"}},
      {u"abc def", 3, {"###", "###"}},    // the blank hangs
      {u"abc   def", 5, {"###", "###"}},  // all of them
      {u"ab cd ef", 5, {"##.##", "##"}},
      {u"abcdefgh", 3, {"###", "###", "##"}},  // a word that is too long
      {u"a bcdefgh i", 3, {"#", "###", "###", "#.#"}},
      {u"ab\ncd", 9, {"##", "##"}},
      {u"ab\r\n\r\ncd", 9, {"##", "", "##"}},
      {u"abc", 0.5F, {"#", "#", "#"}},             // a cluster a line, however narrow
      {u"e\u0301e\u0301e\u0301", 2, {"##", "#"}},  // marks stay with their letters
      {u"\U00020000\U00020001\U00020002", 2, {"##", "#"}},
      {u"漢字漢字漢", 3, {"###", "##"}},
      {u"ab漢字", 3, {"###", "#"}},
      {u"漢字漢。字", 3, {"##", "###"}},  // no full stop at the beginning
      {u"漢字「漢字", 3, {"##", "###"}},  // no opening bracket at the end
      {u"漢　字", 1, {"#", "#"}},
      {u"a\tb", 20, {"#.......#"}},  // a tab stop every eight characters
      {u"abcdefgh\tb", 20, {"########........#"}},
      {u"a\tb", 6, {"#", "#"}},
      {u"a b", 0, {"#.#"}},  // no width, no wrapping
  };
  for (const auto& c : kCases) EXPECT_EQ(Wrapped(c.text, c.columns), c.lines) << ToUtf8(c.text) << " in " << c.columns;
  EXPECT_EQ(Wrapped(u"abc def", 3, 0), Lines{"###.###"});
  EXPECT_EQ(Wrapped(u"ab\ncd\te", 3, kWrap | DT_SINGLELINE), Lines{"##.##...#"});
  EXPECT_EQ(Wrapped(u"a\tb", 9, DT_WORDBREAK), Lines{"#.#"}) << "tabs are blanks unless expanded";
}

TEST_F(DrawingTest, Measures) {
  drawing.BeginText2D();
  EXPECT_EQ(Measured(0, 0, u"abcd"), (Rect{0, 0, 40, 20}));
  EXPECT_EQ(Measured(0, 0, u"ab \nc"), (Rect{0, 0, 30, 40}));
  EXPECT_EQ(Measured(0, 0, u""), (Rect{0, 0, 0, 20}));
  EXPECT_EQ(Measured(DT_SINGLELINE, 0, u"ab\nc"), (Rect{0, 0, 40, 20}));
  EXPECT_EQ(Measured(kWrap, 30, u"abc def ghi"), (Rect{0, 0, 30, 60}));
  EXPECT_EQ(drawing.GetTextRect({5, -7, 100, 0}, 0, u"%d", 42), (Rect{5, -7, 25, 13}));
  drawing.BeginText3D(0.14F);
  // 30 x 0.14 x 38 = 159.6; 60 x 0.14 x 38 = 319.2, and a line less one: 106.4 - 1
  EXPECT_EQ(Measured(kWrap, 5, u"abc def ghi"), (Rect{0, 0, 160, 425}));
  drawing.BeginText3D(1.0F);
  EXPECT_EQ(Measured(0, 0, String(100, u'x').c_str()), (Rect{0, 0, 32767, 2 * 760 - 1}));
  drawing.EndText();
  EXPECT_EQ(Measured(0, 0, u"abcd"), (Rect{0, 0, 0, 0}));
  drawing.SetFont(nullptr);
  drawing.BeginText2D();
  EXPECT_EQ(Measured(0, 0, u"abcd"), (Rect{0, 0, 0, 0}));
}

TEST_F(DrawingTest, Text2DIsOneLineAsItWasMeasured) {
  Rect measured{};
  engine.Draw([&] {
    drawing.BeginText2D();
    measured = Measured(DT_SINGLELINE, 0, u"a\tb\r\n7");
    drawing.DrawText2D(100, 40, Color(0x80FF0000), u"%c\t%s\r\n%d", u'a', u"b", 7);
    drawing.EndText();
    drawing.DrawText2D(0, 0, Color(0), u"outside of begin and end");
  });
  ASSERT_EQ(engine.render.frame.items.size(), 1U) << "one item for one texture";
  const DrawItem& item = engine.render.frame.items[0];
  EXPECT_EQ(item.kind, DrawKind::Triangles2D);
  EXPECT_EQ(item.textureUse, TextureUse::Coverage);
  EXPECT_EQ(item.texture, kBitmapTexture);
  EXPECT_EQ(item.vertexCount, 18U);
  const auto& v = engine.render.frame.vertices;
  EXPECT_EQ(v[0].position, (Vec3{100, 40, 0}));
  EXPECT_EQ(v[6].position, (Vec3{120, 40, 0}));
  EXPECT_EQ(v[12].position, (Vec3{140, 40, 0}));
  EXPECT_EQ(measured, (Rect{0, 0, 50, 20}));
  EXPECT_EQ(v[0].argb, 0x80FF0000U);
}

TEST_F(DrawingTest, Text3DStandsOnItsMatrix) {
  Matrix4x4 matrix = Matrix4x4::Identity;
  matrix.SetTranslation({7, 8, 50});
  Matrix4x4 view = Matrix4x4::Identity;
  view.SetTranslation({0, 0, 100});
  engine.Draw([&] {
    System::render->SetProjection(Matrix4x4::Identity);
    System::render->SetView(view);
    drawing.BeginText3D(0.5F);
    drawing.DrawText3D(matrix, Rect{2, 0, 52, 40}, DT_CENTER, Color(1), u"ab\ncdef");
  });
  const DrawItem& item = engine.render.frame.items.at(0);
  EXPECT_EQ(item.textureUse, TextureUse::DistanceField);
  EXPECT_EQ(item.kind, DrawKind::Triangles3D);
  EXPECT_EQ(item.distance, 150.0F);
  EXPECT_EQ(item.world.GetTranslation(), (Vec3{7, 8, 50}));
  const auto& v = engine.render.frame.vertices;
  // Two characters of 5 units centred in 50 begin at 20 behind the left side; the cell is 10 high above the origin.
  EXPECT_EQ(v.at(0).position, (Vec3{22, 0, 10}));
  EXPECT_EQ(v.at(4).position, (Vec3{27, 0, 0}));
  EXPECT_EQ(v.at(12).position, (Vec3{17, 0, 0})) << "the second line, four characters";
}

TEST_F(DrawingTest, LinesBeginAtTheSideTheyAreReadFrom) {
  const auto left = [&](const Char* text, std::uint32_t flags) {
    return Draw3D({0, 0, 100, 100}, text, flags).at(0).position.x;
  };
  EXPECT_EQ(left(u"ab", 0), 0.0F);
  EXPECT_EQ(left(u"\u0627\u0628", 0), 80.0F);
  EXPECT_EQ(left(u"\u0627\u0628", DT_CENTER), 40.0F);
  EXPECT_EQ(left(u"\u0627\u0628", DT_NOCLIP), 0.0F) << "nothing says where the right is";
}

TEST_F(DrawingTest, AWindowThatBeginsJustAboveALineBeginsWithIt) {
  const auto top = [&](std::int16_t from) {
    return Draw3D({0, from, 100, 20}, u"a\nb\nc\nd", 0, 0.14F).at(0).position.z;  // lines of 2.8
  };
  EXPECT_NEAR(top(0), 2.8F, 1e-4F);
  EXPECT_NEAR(top(2), 0.0F, 1e-4F) << "2.8 cut down: the second line";
  EXPECT_NEAR(top(8), -5.6F, 1e-4F) << "8.4: the fourth";
  EXPECT_NEAR(top(1), 1.8F, 1e-4F) << "part of the first one";
}

TEST_F(DrawingTest, TheWindowCutsGlyphs) {
  const auto& v = Draw3D({0, 25, 100, 65}, u"a\nb\nc\nd\ne");
  ASSERT_EQ(v.size(), 18U) << "of five lines, b to d are in sight";
  EXPECT_EQ(v[0].position, (Vec3{0, 0, -5}));  // 25 below the first cell's top
  EXPECT_EQ(v[0].v, 0.25F);
  EXPECT_EQ(v[4].position, (Vec3{10, 0, -20}));
  EXPECT_EQ(v[4].v, 1.0F);
  EXPECT_EQ(v[6].v, 0.0F);
  EXPECT_EQ(v[16].position, (Vec3{10, 0, -45}));  // 65 below
  EXPECT_EQ(v[16].v, 0.25F);

  EXPECT_EQ(Draw3D({0, 25, 100, 65}, u"a\nb\nc\nd", DT_NOCLIP).size(), 24U);
  EXPECT_TRUE(Draw3D({0, 60, 100, 20}, u"a\nb\nc\nd").empty()) << "a window turned over shows nothing";
}

TEST_F(DrawingTest, KnownTextsAreNotShapedAgain) {
  const auto frame = [&] {
    drawing.BeginText3D(0.14F);
    drawing.DrawText3D(Matrix4x4::Identity, 50.0F, 50.0F, kWrap, Color(1), u"hello world");
    Measured(kWrap, 50, u"hello world");
    drawing.EndText();
  };
  engine.Draw(frame);
  const std::int32_t shaped = engine.fonts.shapeCount;
  engine.Draw(frame);
  EXPECT_EQ(engine.fonts.shapeCount, shaped);

  const auto drawMany = [&](int first) {
    engine.Draw([&] {
      drawing.BeginText2D();
      for (int i = first; i < first + 5000; ++i) drawing.DrawText2D(0, 0, Color(1), u"%d", i);
    });
  };
  drawMany(0);
  drawMany(0);
  EXPECT_EQ(engine.fonts.shapeCount, shaped + 5000) << "all of a frame's texts are kept for the next";
  drawMany(5000);
  engine.Draw(frame);
  EXPECT_GT(engine.fonts.shapeCount, shaped + 10000) << "forgotten behind many others";

  FontManager::GetSingleton()->Destroy(font);
  font = FontManager::GetSingleton()->CreateEx(u"Test", -40, 0, 400, false, 1, kDefaultGroup);
  drawing.SetFont(font);
  drawing.BeginText3D(0.14F);
  EXPECT_EQ(Measured(0, 0, u"x").bottom, 425) << "another font's texts are others";  // 2 x 40 x 0.14 x 38 - 1
}

TEST_F(DrawingTest, QuadsAndBoxes) {
  engine.AddPictureFile(u"pic.png");
  Texture* texture = TextureManager::GetSingleton()->Load(u"pic", kDefaultGroup, 0, 129);
  ASSERT_NE(texture, nullptr);
  const MaterialParams plain;
  MaterialParams params;
  params.AddTexture(TEXTURE_SLOT_1, texture);
  Matrix4x4 world;
  world.SetScale(2, 2, 2);
  engine.Draw([&] {
    drawing.DrawQuad2D(0, 0, 1, 1, Color(1));
    drawing.BeginQuads2D(nullptr, params);
    drawing.DrawQuad2D(1, 2, 11, 22, Color(0xFF112233));
    drawing.DrawQuad2D(3, 4, 5, 6, Color(0xFF112233));
    drawing.EndQuads();
    drawing.SetWorldMatrix(world);
    drawing.BeginQuads3D(nullptr, plain);
    drawing.DrawQuad3D({-1, 0, 1}, {1, 0, 1}, {-1, 0, 7}, {1, 0, 7}, Color(5));
    drawing.EndQuads();
    drawing.DrawAABB({{1, 2, 3}, {1, 1, 1}}, Color(0xFF0000));
  });
  const DrawList& frame = engine.render.frame;
  ASSERT_EQ(frame.items.size(), 3U);
  EXPECT_EQ(frame.items[0].texture, texture->GetHandle());
  EXPECT_EQ(frame.items[0].vertexCount, 12U);
  EXPECT_EQ(frame.vertices[4].position, (Vec3{11, 22, 0}));
  EXPECT_EQ(frame.vertices[4].u + frame.vertices[4].v, 2.0F);
  EXPECT_EQ(frame.items[1].texture, 0U);
  EXPECT_EQ(frame.items[1].distance, 8.0F) << "of its middle, in the world";
  EXPECT_EQ(frame.items[2].kind, DrawKind::Lines3D);
  EXPECT_EQ(frame.items[2].vertexCount, 24U);
  EXPECT_EQ(frame.items[2].world.m[0][0], 2.0F);
  EXPECT_EQ(frame.vertices.back().argb, 0xFFFF0000U);
}

TEST_F(DrawingTest, ProjectionsBeginLayers) {
  Matrix4x4 second;
  second.SetScale(2, 2, 2);
  engine.Draw([&] {
    System::render->SetProjection(Matrix4x4::Identity);
    drawing.DrawAABB({{}, {1, 1, 1}}, Color(1));
    System::render->SetProjection(second);
    System::render->SetView(second);
    drawing.DrawAABB({{}, {1, 1, 1}}, Color(1));
    drawing.DrawAABB({{}, {2, 2, 2}}, Color(1));
  });
  const DrawList& frame = engine.render.frame;
  ASSERT_EQ(frame.layers.size(), 2U);
  EXPECT_EQ(frame.layers[0].itemCount, 1U);
  EXPECT_EQ(frame.layers[1].firstItem, 1U);
  EXPECT_EQ(frame.layers[1].itemCount, 1U) << "what looks the same is one item";
  EXPECT_EQ(frame.items[1].vertexCount, 48U);
  EXPECT_EQ(frame.layers[1].projection.m[0][0], 2.0F);
  EXPECT_EQ(frame.layers[1].view.m[0][0], 2.0F);
  EXPECT_EQ(engine.render.width, 800);
}

}  // namespace
}  // namespace qen::base
