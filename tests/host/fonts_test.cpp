// Faces, shaping and measuring, and the pages that glyphs are put into.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "base/utf.h"
#include "host/fonts/freetype_fonts.h"
#include "host/fonts/glyph_atlas.h"

namespace qen::host {
namespace {

using base::FontRequest;
using base::GlyphStyle;
using base::IFontFace;
using base::ShapedLine;

// Remembers which texels are taken.
class FakePages final : public IGlyphPages {
 public:
  struct Page {
    std::int32_t width, height;
    std::vector<std::uint8_t> texels;
  };

  std::uint32_t CreatePage(std::int32_t width, std::int32_t height) override {
    if (full) return 0;
    pages.push_back({width, height, std::vector<std::uint8_t>(static_cast<std::size_t>(width * height))});
    return static_cast<std::uint32_t>(pages.size());
  }

  void UpdatePage(std::uint32_t name, std::int32_t x, std::int32_t y, std::int32_t width, std::int32_t height,
                  std::span<const std::uint8_t> source) override {
    Page& page = pages.at(name - 1);
    ASSERT_TRUE(x >= 0 && y >= 0 && x + width <= page.width && y + height <= page.height);
    ASSERT_EQ(source.size(), static_cast<std::size_t>(width * height));
    for (std::int32_t i = 0; i < (width + 1) * (height + 1); ++i) {
      const std::int32_t column = x + i % (width + 1), row = y + i / (width + 1);
      if (column == page.width || row == page.height) continue;
      ASSERT_EQ(std::exchange(page.texels[static_cast<std::size_t>(row * page.width + column)], 1), 0)
          << "it touches another";
    }
  }

  std::vector<Page> pages;
  bool full = false;
};

TEST(GlyphAtlasTest, TwentyThousandGlyphsFindTheirPlaces) {
  FakePages pages;
  GlyphAtlas atlas(pages);
  const auto add = [&](std::int32_t width, std::int32_t height) {
    return atlas.Add(width, height, std::vector<std::uint8_t>(static_cast<std::size_t>(width * height), 1));
  };
  for (std::int32_t i = 0; i < 20000; ++i) {
    const std::int32_t width = i == 100 ? 3000 : 20 + i * 7 % 50;
    const std::int32_t height = i == 100 ? 1500 : 20 + i * 13 % 55;
    const AtlasPlace place = add(width, height);
    ASSERT_NE(place.texture, 0U);
    const FakePages::Page& page = pages.pages.at(place.texture - 1);
    ASSERT_NEAR((place.u1 - place.u0) * static_cast<float>(page.width), width, 0.01F);
    ASSERT_NEAR((place.v1 - place.v0) * static_cast<float>(page.height), height, 0.01F);
  }
  EXPECT_LT(pages.pages.size(), 52U) << "too much of them is empty";
  EXPECT_EQ(add(0, 10).texture, 0U);
  EXPECT_EQ(add(10, 0).texture, 0U);
  pages.full = true;
  EXPECT_EQ(add(1000, 1000).texture, 0U) << "no page to be had";
  pages.full = false;
  EXPECT_NE(add(1000, 1000).texture, 0U);
}

class FontsTest : public ::testing::Test {
 protected:
  static ShapedLine Shape(IFontFace& face, StringView text, GlyphStyle style = GlyphStyle::DistanceField) {
    ShapedLine line;
    face.Shape(text, style, line);
    return line;
  }

  // Where the pictures of a line's glyphs are, from left to right.
  using Place = std::array<float, 3>;
  static std::vector<Place> Places(IFontFace& face, StringView text, GlyphStyle style = GlyphStyle::DistanceField) {
    std::vector<Place> places;
    for (const base::Glyph& glyph : Shape(face, text, style).glyphs) {
      places.push_back({static_cast<float>(glyph.texture), glyph.u0, glyph.v0});
    }
    return places;
  }

  // The letters of a line from left to right, each known by the picture it has alone; ? is another.
  static String Seen(IFontFace& face, StringView text) {
    String seen;
    for (const Place& place : Places(face, text)) {
      const auto same = [&](Char letter) { return Places(face, String(1, letter)) == std::vector{place}; };
      const auto found = std::ranges::find_if(text, same);
      seen += found != text.end() ? *found : u'?';
    }
    return seen;
  }

  FakePages pages;
  FreetypeFonts fonts{pages};
  std::unique_ptr<IFontFace> sans = fonts.CreateFace({.face = u"DejaVu Sans", .height = -32});
};

TEST_F(FontsTest, MakesFacesOfTheSizeAndStyleAskedFor) {
  const String name = u"DejaVu Sans", chinese = u"WenQuanYi Micro Hei";
  const struct {
    FontRequest request;
    std::array<std::int32_t, 3> metric;  // height, ascent, descent
    float advance, width;                // of an O and of its picture
  } cases[] = {{{name, -100}, {117, 93, 24}, 78.7F, 87.5F},
               {{name, 20}, {20, 16, 4}, 13.5F, 15.0F},
               {{name, -32, 8}, {38, 30, 8}, 12.4F, 13.8F},
               {{name, -32, -24}, {38, 30, 8}, 37.3F, 41.4F},
               {{name, -32, 0, 700}, {38, 30, 8}, 27.2F, 30.5F},
               {{name, -32, 0, 400, true}, {38, 30, 8}, 25.2F, 29.0F},
               {{chinese, -32}, {38, 30, 8}, 23.75F, 26.5F},
               {{chinese, -32, 0, 700}, {38, 30, 8}, 25.08F, 28.0F},
               {{name, INT32_MIN, INT32_MIN, INT32_MIN}, {2384, 1901, 483}, 16120.0F, 17920.0F},
               {{name, INT32_MAX, INT32_MAX, INT32_MAX}, {2384, 1901, 483}, 17410.0F, 19520.0F}};
  for (const auto& row : cases) {
    const auto face = fonts.CreateFace(row.request);
    const TextMetric metric = face->Metric();
    EXPECT_EQ((std::array{metric.tmHeight, metric.tmAscent, metric.tmDescent}), row.metric) << &row - cases;
    const ShapedLine line = Shape(*face, u"O");
    EXPECT_NEAR(line.width, row.advance, 0.1F) << &row - cases;
    EXPECT_NEAR(line.glyphs.at(0).right - line.glyphs.at(0).left, row.width, 0.1F) << &row - cases;
  }
  for (std::int32_t height = 5; height < 60; ++height) {
    EXPECT_EQ(fonts.CreateFace({name, height})->Metric().tmHeight, height);
  }
}

TEST_F(FontsTest, ShapesLinesAsTheyAreSeenAndMeasuresThemAsTheyAreRead) {
  const struct {
    StringView text, seen;
    bool rightToLeft;
    std::vector<StringView> ends;  // behind each unit, as the widths of other texts
  } cases[] = {{u"", u"", false, {}},
               {u"ab", u"ab", false, {u"a", u"ab"}},
               {u"שi", u"iש", true, {u"ש", u"שi"}},
               {u"אב12", u"12בא", true, {u"א", u"אב", u"אב1", u"אב12"}},
               {u"a אב", u"a בא", false, {u"a", u"a ", u"a א", u"a אב"}},
               {u"سلام", u"م??", true, {}},
               {u"e\u0301a", u"?a", false, {u"e", u"e", u"ea"}},
               {u"x\u0323\u0302", u"x??", false, {u"x", u"x", u"x"}},
               {u"a\U0001D538b", u"a?b", false, {u"a", u"a\U0001D538", u"a\U0001D538", u"a\U0001D538b"}},
               {u"a\n\u2028b", u"a\n\nb", false, {u"a", u"a", u"a", u"ab"}}};
  for (const auto& row : cases) {
    const std::string text = base::ToUtf8(row.text);
    EXPECT_EQ(Seen(*sans, row.text), row.seen) << text << ' ' << base::ToUtf8(Seen(*sans, row.text));
    EXPECT_EQ(Shape(*sans, row.text).rightToLeft, row.rightToLeft) << text;
    std::vector<float> ends;
    sans->Measure(row.text, ends);
    ASSERT_EQ(ends.size(), row.text.size());
    for (std::size_t i = 0; i < row.ends.size(); ++i)
      EXPECT_NEAR(ends[i], Shape(*sans, row.ends[i]).width, 0.01F) << text << i;
  }
  EXPECT_LT(Shape(*sans, u"AV").width, Shape(*sans, u"A").width + Shape(*sans, u"V").width - 0.5F) << "kerned";
}

TEST_F(FontsTest, LettersAndFacesThatAreMissingComeFromAnother) {
  const auto mono = fonts.CreateFace({u"DejaVu Sans Mono", -32});
  const StringView word = u"א\u05B0\uFE0Fב";  // the monospaced face has no Hebrew
  EXPECT_EQ(Places(*mono, word), Places(*sans, word));
  EXPECT_NE(Places(*mono, u"x"), Places(*sans, u"x"));
  for (const StringView known : {u"DejaVu Sans", u"DEJAVU SANS", u"sans-serif", u"", u"文泉驛微米黑"}) {
    EXPECT_EQ(fonts.CreateFace({String(known), 20})->Substitute(), u"") << base::ToUtf8(known);
  }
  EXPECT_NE(fonts.CreateFace({String(5000, u'x'), 20})->Substitute(), u"");
  EXPECT_EQ(Places(*sans, String(1, u'\xD800')), Places(*sans, u"\uFFFD"));
}

TEST_F(FontsTest, BrokenAndInvisibleTextHarmsNothing) {
  for (const String& text : {String{u'\xDC00', u'\xD800'}, String{u'a', u'\xD83D'}, String(u"\u200D\u200D\uFE0F"),
                             String(u"\u0301\u0302"), String(u"\t\r\x01"), String(u"\u2029\u202E\u2067"),
                             String(u"\uFFFF\U0010FFFF"), String(3000, u'\x0301'), String(1, u'\0')}) {
    std::vector<float> ends;
    sans->Measure(text, ends);
    EXPECT_EQ(ends.size(), text.size());
    EXPECT_GE(Shape(*sans, text, GlyphStyle::Bitmap).width, 0.0F);
    EXPECT_GE(Shape(*sans, text).width, 0.0F);
  }
}

TEST_F(FontsTest, DistanceFieldsServeAllSizesAndBitmapsOneOnWholePixels) {
  const auto small = fonts.CreateFace({u"DejaVu Sans", -12});
  EXPECT_EQ(Places(*small, u"g"), Places(*sans, u"g"));
  for (const base::Glyph& glyph : Shape(*small, u"minimum", GlyphStyle::Bitmap).glyphs) {
    EXPECT_EQ((std::array{glyph.left, glyph.top}), (std::array{std::floor(glyph.left), std::floor(glyph.top)}));
  }
  EXPECT_EQ(Shape(*sans, u" ").glyphs.at(0).texture, 0U);
}

}  // namespace
}  // namespace qen::host
