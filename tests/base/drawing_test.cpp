#include "engine/drawing.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <sstream>

#include "base/recording/recording_engine.h"
#include "base/utf.h"
#include "engine/font.h"

namespace qen::base {
namespace {

constexpr std::uint32_t kWrap = DT_WORDBREAK | DT_EXPANDTABS;

// What a frame draws, as text: as what, how many vertices, and the first and the last but one of these: the left top of
// the first quad and the right bottom of the last, with their places in the picture's height.
std::string Told(const DrawList& frame) {
  std::ostringstream out;
  for (const DrawItem& item : frame.items) {
    out << (out.tellp() > 0 ? "; " : "") << std::array{"mesh", "3D", "lines", "2D"}[static_cast<std::size_t>(item.kind)]
        << " x" << item.vertexCount << ':';
    for (const std::uint32_t index : {item.firstVertex, item.firstVertex + item.vertexCount - 2}) {
      const DrawVertex& v = frame.vertices.at(index);
      for (const float value : {v.position.x, v.position.y, v.position.z, v.v}) {
        out << ' ' << std::round(value * 1e4F) / 1e4F + 0.0F;
      }
    }
  }
  return out.str();
}

// The test font has cells of 20 x 10 pixels, its base line 16 below the top.
class DrawingTest : public testing::Test {
 protected:
  DrawingTest() { drawing.SetFont(font); }

  void Draw3D(const Rect& window, std::uint32_t flags, float scale, const Char* text) {
    engine.Draw([&] {
      drawing.BeginText3D(scale);
      drawing.DrawText3D(Matrix4x4::Identity, window, flags, Color(1), text);
    });
  }

  // What a text looks like wrapped at `columns` characters: "##.#/#" where blanks are dots and lines end with a slash.
  std::string Wrapped(const Char* text, std::int16_t columns) {
    Draw3D({0, 0, columns, 1000}, kWrap, 0.1F, text);
    std::string lines;
    float row = 0.0F, column = 0.0F;
    for (std::size_t i = 0; i < frame.vertices.size(); i += 6) {
      const Vec3 at = frame.vertices[i].position;
      for (; std::round(at.z / 2) < 1 - row; ++row, column = 0) lines += '/';
      for (; std::round(at.x) > column; ++column) lines += '.';
      lines += '#';
      ++column;
    }
    return lines;
  }

  RecordingEngine engine;
  const DrawList& frame = engine.render.frame;
  Font* font = FontManager::GetSingleton()->CreateEx(u"Test", -20, 0, 400, false, 1, kDefaultGroup);
  Drawing drawing;
};

TEST_F(DrawingTest, BreaksLines) {
  const struct {
    const char* what;
    std::int16_t columns;
    const Char* text;
    const char* lines;
  } kCases[] = {
      {"behind blanks, which hang over the end", 3, u"abc def\nabc   def", "###/###/###/###"},
      {"as many words as fit", 6, u"abc def\nab cd ef", "###/###/##.##/##"},
      {"in words that are too long", 3, u"abcdefgh\na bcdefgh i", "###/###/##/#/###/###/#.#"},
      {"with the letters' marks", 2, u"e\u0301e\u0301e\u0301\n\U00020000\U00020001\U00020002", "##/#/##/#"},
      {"between East Asian characters", 3, u"漢字漢字漢\nab漢字", "###/##/###/#"},
      {"no full stop first, no bracket last", 3, u"漢字漢。字\n漢字「漢字", "##/###/##/###"},
      {"at a wide blank", 1, u"漢　字", "#/#"},
      {"a tab stop every eight characters", 20, u"a\tb\nabcdefgh\tb", "#.......#/########........#"},
      {"line feeds", 9, u"ab\r\n\r\ncd", "##//##"},
  };
  for (const auto& c : kCases) EXPECT_EQ(Wrapped(c.text, c.columns), c.lines) << c.what;
  Draw3D({0, 0, 1, 1000}, kWrap, 0.2F, u"abc");
  EXPECT_EQ(frame.vertices.back().position.z, -8.0F) << "a character a line, however narrow";
}

TEST_F(DrawingTest, Measures) {
  drawing.BeginText2D();
  EXPECT_EQ(drawing.GetTextRect({0, 0, 10, 0}, 0, u"ab \nc"), (Rect{0, 0, 30, 40}));
  EXPECT_EQ(drawing.GetTextRect({}, 0, u""), (Rect{0, 0, 0, 20}));
  EXPECT_EQ(drawing.GetTextRect({}, DT_SINGLELINE, u"a\tb\r\n7"), (Rect{0, 0, 50, 20}));
  EXPECT_EQ(drawing.GetTextRect({5, -7, 35, 0}, kWrap, u"abc def ghi"), (Rect{5, -7, 35, 53}));
  drawing.BeginText3D(0.14F);
  // 30 x 0.14 x 38 = 159.6; 60 x 0.14 x 38 = 319.2, and a line less one: 106.4 - 1
  EXPECT_EQ(drawing.GetTextRect({1, 2, 6, 0}, kWrap, u"abc def ghi"), (Rect{38, 76, 198, 501}));
  drawing.BeginText3D(1.0F);
  EXPECT_EQ(drawing.GetTextRect({}, kWrap, u"%100d", 1), (Rect{0, 0, 32767, 2 * 760 - 1})) << "no width, no wrapping";
  drawing.EndText();
  EXPECT_EQ(drawing.GetTextRect({}, 0, u"abcd"), Rect{});
  drawing.BeginText2D();
  drawing.SetFont(nullptr);
  EXPECT_EQ(drawing.GetTextRect({}, 0, u"abcd"), Rect{});
}

TEST_F(DrawingTest, DrawsBetweenBeginAndEndAndBoxesAlways) {
  const auto draw = [&] {
    drawing.DrawQuad2D(1, 2, 11, 22, Color(1));
    drawing.DrawText2D(100, 40, Color(1), u"%c\t%s\r\n%d", u'a', u"b", 7);
    drawing.DrawAABB({{1, 2, 3}, {1, 1, 1}}, Color(1));
  };
  engine.Draw([&] { draw(), draw(); });
  EXPECT_EQ(Told(frame), "lines x48: 0 1 2 0 0 3 4 0") << "what looks the same is one";
  engine.Draw([&] { drawing.BeginText2D(), draw(); });
  EXPECT_EQ(Told(frame), "2D x18: 100 40 0 0 150 60 0 1; lines x24: 0 1 2 0 0 3 4 0");
}

// Lines begin at the side they are read from, if it is known; the window cuts what stands out of it; and one that
// begins less than a unit above a line begins with that.
TEST_F(DrawingTest, TextsInAWindow) {
  const struct {
    Rect window;
    std::uint32_t flags;
    float scale;
    const Char* text;
    const char* told;
  } kCases[] = {
      {{0, 0, 100, 100}, 0, 1, u"\u0627", "3D x6: 90 0 20 0 100 0 0 1"},
      {{0, 0, 100, 100}, DT_CENTER, 1, u"\u0627", "3D x6: 45 0 20 0 55 0 0 1"},
      {{0, 25, 100, 65}, 0, 1, u"a\nb\nc\nd\ne", "3D x18: 0 0 -5 0.25 10 0 -45 0.25"},
      {{0, 25, 100, 65}, DT_NOCLIP, 1, u"\u0627\nb\nc\nd\ne", "3D x30: 0 0 20 0 10 0 -80 1"},
      {{0, 60, 100, 20}, 0, 1, u"a\nb\nc\nd", ""},  // turned over
      // Lines of 2.8: the window begins with the first, in it and with the second.
      {{0, 0, 100, 2}, 0, 0.14F, u"a\nb\nc\nd", "3D x6: 0 0 2.8 0 1.4 0 0.8 0.7143"},
      {{0, 1, 100, 2}, 0, 0.14F, u"a\nb\nc\nd", "3D x6: 0 0 1.8 0.3571 1.4 0 0.8 0.7143"},
      {{0, 2, 100, 4}, 0, 0.14F, u"a\nb\nc\nd", "3D x6: 0 0 0 0 1.4 0 -2 0.7143"},
  };
  for (const auto& c : kCases) {
    Draw3D(c.window, c.flags, c.scale, c.text);
    EXPECT_EQ(Told(frame), c.told);
  }
}

TEST_F(DrawingTest, KnownTextsAreNotShapedAgain) {
  const auto drawMany = [&](int first) {
    engine.Draw([&] {
      drawing.BeginText3D(0.14F);
      drawing.DrawText3D(Matrix4x4::Identity, 50.0F, 50.0F, kWrap, Color(1), u"hello world");
      drawing.GetTextRect({0, 0, 50, 0}, kWrap, u"hello world");
      drawing.BeginText2D();
      for (int i = first; i < first + 5000; ++i) drawing.DrawText2D(0, 0, Color(1), u"%d", i);
    });
    return engine.fonts.shapeCount;
  };
  const std::int32_t shaped = drawMany(0);
  EXPECT_EQ(drawMany(0), shaped) << "all of a frame's texts are kept for the next";
  EXPECT_EQ(drawMany(5000), shaped + 5000);
  for (const int others : {10000, 20000, 30000}) drawMany(others);
  EXPECT_EQ(drawMany(0), shaped + 25000) << "forgotten behind many others";

  drawing.SetFont(FontManager::GetSingleton()->CreateEx(u"Test", -40, 0, 400, false, 1, kDefaultGroup));
  EXPECT_EQ(drawing.GetTextRect({}, 0, u"0").bottom, 40) << "another font's texts are others";
}

}  // namespace
}  // namespace qen::base
