// Faces, shaping and measuring, on the DejaVu fonts.
#include <gmock/gmock.h>

#include <algorithm>

#include "host/fonts/freetype_fonts.h"
#include "tests/host/graphics_test.h"

namespace qen::host {
namespace {

using base::FontRequest;
using base::GlyphStyle;
using base::IFontFace;
using base::ShapedLine;

class FontsTest : public GraphicsTest {
 protected:
  ShapedLine Shape(IFontFace& face, StringView text, GlyphStyle style = GlyphStyle::DistanceField) {
    ShapedLine line;
    face.Shape(text, style, line);
    return line;
  }
  std::vector<float> Measure(IFontFace& face, StringView text) {
    std::vector<float> ends;
    face.Measure(text, ends);
    return ends;
  }
  std::unique_ptr<IFontFace> Sans(std::int32_t height = -32) {
    return fonts.CreateFace({.face = u"DejaVu Sans", .height = height});
  }

  FreetypeFonts fonts{renderer->GlyphPages()};
};

bool SamePicture(const base::Glyph& a, const base::Glyph& b) {
  return a.texture == b.texture && a.u0 == b.u0 && a.v0 == b.v0;
}

TEST_F(FontsTest, NegativeHeightsAreOfTheEmSquareAndPositiveOfTheCell) {
  const TextMetric em = Sans(-100)->Metric();
  EXPECT_EQ(em.tmAscent, 93);  // DejaVu Sans: 0.928 and 0.236 of the em square
  EXPECT_EQ(em.tmDescent, 24);
  EXPECT_EQ(em.tmHeight, 117);
  for (std::int32_t height = 5; height < 60; ++height) {
    const TextMetric cell = Sans(height)->Metric();
    EXPECT_EQ(cell.tmHeight, height);
    EXPECT_EQ(cell.tmAscent + cell.tmDescent, height);
  }
  EXPECT_GT(Sans(0)->Metric().tmHeight, 8);
}

TEST_F(FontsTest, WidthsGrowWithTheHeightAndWithTheWidthAskedFor) {
  const float width = Shape(*Sans(-32), u"Wide").width;
  EXPECT_NEAR(Shape(*Sans(-64), u"Wide").width, width * 2.0F, 0.5F);
  const auto narrow = fonts.CreateFace({.face = u"DejaVu Sans", .height = -32, .width = 8});
  const auto wide = fonts.CreateFace({.face = u"DejaVu Sans", .height = -32, .width = 24});
  EXPECT_NEAR(Shape(*wide, u"Wide").width, Shape(*narrow, u"Wide").width * 3.0F, 1.0F);
  EXPECT_EQ(wide->Metric().tmHeight, narrow->Metric().tmHeight);
  const ShapedLine squeezed = Shape(*narrow, u"O");
  const ShapedLine stretched = Shape(*wide, u"O");
  EXPECT_NEAR(stretched.glyphs[0].right - stretched.glyphs[0].left,
              (squeezed.glyphs[0].right - squeezed.glyphs[0].left) * 3.0F, 0.01F);
}

TEST_F(FontsTest, UnknownFacesAndAbsurdSizesFallBack) {
  const FontRequest requests[] = {{.face = u"No Such Face 123", .height = -20},
                                  {.face = u"", .height = 20},
                                  {.face = String(5000, u'x'), .height = -20},
                                  {.face = u"DejaVu Sans", .height = -2000000000, .weight = -5},
                                  {.face = u"DejaVu Sans", .height = INT32_MIN, .width = INT32_MIN, .weight = 100000}};
  for (const FontRequest& request : requests) {
    const auto face = fonts.CreateFace(request);
    ASSERT_NE(face, nullptr);
    EXPECT_GT(face->Metric().tmHeight, 0);
    EXPECT_GT(Shape(*face, u"ab").width, 0.0F);
    EXPECT_GT(Shape(*face, u"ab", GlyphStyle::Bitmap).width, 0.0F);
  }
}

TEST_F(FontsTest, BoldIsBolderAndItalicIsAnother) {
  const ShapedLine regular = Shape(*Sans(), u"l");
  const ShapedLine bold = Shape(*fonts.CreateFace({.face = u"DejaVu Sans", .height = -32, .weight = 700}), u"l");
  const ShapedLine italic = Shape(*fonts.CreateFace({.face = u"DejaVu Sans", .height = -32, .italic = true}), u"l");
  EXPECT_GT(bold.width, regular.width);
  EXPECT_GT(italic.glyphs[0].right - italic.glyphs[0].left, regular.glyphs[0].right - regular.glyphs[0].left + 1.0F);
}

TEST_F(FontsTest, ArabicLettersJoin) {
  const auto face = Sans();
  const ShapedLine word = Shape(*face, u"سلام");  // lam and alef become one
  EXPECT_EQ(word.glyphs.size(), 3U);
  const ShapedLine alone = Shape(*face, u"س");
  ASSERT_EQ(alone.glyphs.size(), 1U);
  EXPECT_FALSE(SamePicture(word.glyphs.back(), alone.glyphs[0]))
      << "the first letter, at the right, takes another shape";
}

TEST_F(FontsTest, HebrewRunsFromTheRightAndNumbersInItFromTheLeft) {
  const auto face = Sans();
  const ShapedLine line = Shape(*face, u"אב12");
  ASSERT_EQ(line.glyphs.size(), 4U);
  EXPECT_TRUE(SamePicture(line.glyphs[3], Shape(*face, u"א").glyphs[0]));
  EXPECT_TRUE(SamePicture(line.glyphs[0], Shape(*face, u"1").glyphs[0]));
  EXPECT_TRUE(SamePicture(line.glyphs[1], Shape(*face, u"2").glyphs[0]));
}

TEST_F(FontsTest, PairsAreKernedAndMarksTakeNoRoom) {
  const auto face = Sans();
  EXPECT_LT(Shape(*face, u"AV").width, Shape(*face, u"A").width + Shape(*face, u"V").width - 0.5F);
  EXPECT_NEAR(Shape(*face, u"x\u0323\u0302").width, Shape(*face, u"x").width, 0.01F);
}

TEST_F(FontsTest, MeasuringAgreesWithShapingUnitByUnit) {
  const auto face = Sans();
  for (const StringView text : {u"Hello, AVATAR", u"שלום 123 abc", u"سلام عليكم", u"e\u0301a\u0323"}) {
    const std::vector<float> ends = Measure(*face, text);
    ASSERT_EQ(ends.size(), text.size());
    EXPECT_TRUE(std::ranges::is_sorted(ends));
    EXPECT_NEAR(ends.back(), Shape(*face, text).width, 0.01F);
  }
  const std::vector<float> marked = Measure(*face, u"e\u0301a");
  EXPECT_EQ(marked[0], marked[1]);
  EXPECT_LT(marked[1], marked[2]);
  // A letter outside the first plane has two units.
  const std::vector<float> wide = Measure(*face, u"a\U0001D538b");
  ASSERT_EQ(wide.size(), 4U);
  EXPECT_EQ(wide[1], wide[2]);
  EXPECT_GT(wide[1], wide[0]);
  EXPECT_TRUE(Measure(*face, u"").empty());
}

TEST_F(FontsTest, MeasuringIsInLogicalOrder) {
  const auto face = Sans();
  const std::vector<float> ends = Measure(*face, u"שi");  // a wide letter before a narrow one
  EXPECT_NEAR(ends[0], Shape(*face, u"ש").width, 0.01F);
}

TEST_F(FontsTest, LettersThatAFaceLacksComeFromAnother) {
  const auto mono = fonts.CreateFace({.face = u"DejaVu Sans Mono", .height = -32});
  const auto sans = Sans();
  const ShapedLine borrowed = Shape(*mono, u"א");  // the monospaced face has no Hebrew
  ASSERT_EQ(borrowed.glyphs.size(), 1U);
  EXPECT_TRUE(SamePicture(borrowed.glyphs[0], Shape(*sans, u"א").glyphs[0]));
  const ShapedLine mixed = Shape(*mono, u"xאx");
  EXPECT_TRUE(SamePicture(mixed.glyphs[0], Shape(*mono, u"x").glyphs[0]));
  EXPECT_TRUE(SamePicture(mixed.glyphs[2], mixed.glyphs[0]));
  EXPECT_FALSE(SamePicture(mixed.glyphs[0], Shape(*sans, u"x").glyphs[0]));
}

TEST_F(FontsTest, BrokenAndInvisibleTextHarmsNothing) {
  const auto face = Sans();
  const String texts[] = {String(1, u'\xD800'),
                          String(1, u'\xDC00'),
                          String{u'\xDC00', u'\xD800'},
                          String{u'a', u'\xD83D'},
                          u"\u200D\u200D\uFE0F",
                          u"\u0301\u0302",
                          u"\t\r\n\x01",
                          u"\u2028\u2029\u202E\u2067",
                          u"\uFFFF\U0010FFFF",
                          String(3000, u'\x0301'),
                          String(1, u'\0')};
  for (const String& text : texts) {
    EXPECT_EQ(Measure(*face, text).size(), text.size());
    EXPECT_GE(Shape(*face, text, GlyphStyle::Bitmap).width, 0.0F);
    EXPECT_GE(Shape(*face, text).width, 0.0F);
  }
  EXPECT_EQ(Shape(*face, u"\t\r\n").width, 0.0F);
  const ShapedLine lone = Shape(*face, String(1, u'\xD800'));
  EXPECT_TRUE(SamePicture(lone.glyphs.at(0), Shape(*face, u"\uFFFD").glyphs.at(0)));
}

TEST_F(FontsTest, BlanksHaveWidthAndNoPicture) {
  const ShapedLine line = Shape(*Sans(), u"   ");
  EXPECT_GT(line.width, 10.0F);
  for (const base::Glyph& glyph : line.glyphs) EXPECT_EQ(glyph.texture, 0U);
}

TEST_F(FontsTest, DistanceFieldsServeAllSizesAndBitmapsOne) {
  const auto small = Sans(-12);
  const auto large = Sans(-120);
  EXPECT_TRUE(SamePicture(Shape(*small, u"g").glyphs[0], Shape(*large, u"g").glyphs[0]));
  EXPECT_FALSE(SamePicture(Shape(*small, u"g", GlyphStyle::Bitmap).glyphs[0],
                           Shape(*large, u"g", GlyphStyle::Bitmap).glyphs[0]));
  const base::Glyph glyph = Shape(*small, u"fg", GlyphStyle::Bitmap).glyphs[1];
  EXPECT_EQ(glyph.left, std::floor(glyph.left));
  EXPECT_EQ(glyph.top, std::floor(glyph.top));
}

}  // namespace
}  // namespace qen::host
