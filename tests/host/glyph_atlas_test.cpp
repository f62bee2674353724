#include "host/fonts/glyph_atlas.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>

namespace qen::host {
namespace {

std::size_t TexelIndex(std::int32_t row, std::int32_t column, std::int32_t width) {
  return static_cast<std::size_t>(row) * static_cast<std::size_t>(width) + static_cast<std::size_t>(column);
}

// Remembers who wrote which texel.
class FakePages final : public IGlyphPages {
 public:
  struct Page {
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::vector<std::uint8_t> texels;
  };

  std::uint32_t CreatePage(std::int32_t width, std::int32_t height) override {
    if (full) return 0;
    const auto page = static_cast<std::uint32_t>(pages.size() + 1);
    pages[page] = {width, height, std::vector<std::uint8_t>(TexelIndex(height, 0, width))};
    return page;
  }

  void UpdatePage(std::uint32_t name, std::int32_t x, std::int32_t y, std::int32_t width, std::int32_t height,
                  std::span<const std::uint8_t> source) override {
    Page& page = pages.at(name);
    ASSERT_GE(x, 0);
    ASSERT_GE(y, 0);
    ASSERT_LE(x + width, page.width);
    ASSERT_LE(y + height, page.height);
    ASSERT_EQ(source.size(), TexelIndex(height, 0, width));
    for (std::int32_t row = 0; row < height; ++row) {
      for (std::int32_t column = 0; column < width; ++column) {
        std::uint8_t& texel = page.texels[TexelIndex(y + row, x + column, page.width)];
        ASSERT_EQ(texel, 0) << "a glyph lies on another";
        texel = source[TexelIndex(row, column, width)];
      }
    }
  }

  std::map<std::uint32_t, Page> pages;
  bool full = false;
};

AtlasPlace Add(GlyphAtlas& atlas, std::int32_t width, std::int32_t height) {
  return atlas.Add(width, height, std::vector<std::uint8_t>(TexelIndex(height, 0, width), 1));
}

TEST(GlyphAtlasTest, TwentyThousandGlyphsFindTheirPlaces) {
  FakePages pages;
  GlyphAtlas atlas(pages);
  double area = 0.0;
  for (std::int32_t i = 0; i < 20000; ++i) {
    const std::int32_t width = 20 + i * 7 % 50;
    const std::int32_t height = 20 + i * 13 % 55;
    area += width * height;
    const AtlasPlace place = Add(atlas, width, height);
    ASSERT_NE(place.texture, 0U);
    const FakePages::Page& page = pages.pages.at(place.texture);
    ASSERT_EQ(std::lround((place.u1 - place.u0) * static_cast<float>(page.width)), width);
    ASSERT_EQ(std::lround((place.v1 - place.v0) * static_cast<float>(page.height)), height);
    const auto x = static_cast<std::int32_t>(std::lround(place.u0 * static_cast<float>(page.width)));
    const auto y = static_cast<std::int32_t>(std::lround(place.v0 * static_cast<float>(page.height)));
    ASSERT_EQ(page.texels[TexelIndex(y, x, page.width)], 1);
  }
  const double taken = static_cast<double>(pages.pages.size()) * 1024 * 1024;
  EXPECT_LT(taken, area * 1.35) << "too much of the pages is empty";
}

TEST(GlyphAtlasTest, NeighboursDoNotTouch) {
  FakePages pages;
  GlyphAtlas atlas(pages);
  for (int i = 0; i < 500; ++i) Add(atlas, 10, 10);
  const FakePages::Page& page = pages.pages.at(1);
  std::int32_t filled = 0;
  for (const std::uint8_t texel : page.texels) filled += texel;
  EXPECT_EQ(filled, 500 * 100);
  for (std::int32_t y = 0; y < page.height; ++y) {
    std::int32_t run = 0;
    for (std::int32_t x = 0; x < page.width; ++x) {
      run = page.texels[TexelIndex(y, x, page.width)] != 0 ? run + 1 : 0;
      ASSERT_LE(run, 10);
    }
  }
}

TEST(GlyphAtlasTest, AGlyphLargerThanAPageGetsALargerPage) {
  FakePages pages;
  GlyphAtlas atlas(pages);
  EXPECT_NE(Add(atlas, 3000, 1500).texture, 0U);
  EXPECT_NE(Add(atlas, 10, 10).texture, 0U);
}

TEST(GlyphAtlasTest, NothingIsDrawnForEmptyPicturesOrWithoutPages) {
  FakePages pages;
  GlyphAtlas atlas(pages);
  EXPECT_EQ(Add(atlas, 0, 10).texture, 0U);
  EXPECT_EQ(Add(atlas, 10, 0).texture, 0U);
  pages.full = true;
  EXPECT_EQ(Add(atlas, 10, 10).texture, 0U);
  pages.full = false;
  EXPECT_NE(Add(atlas, 10, 10).texture, 0U);
}

}  // namespace
}  // namespace qen::host
