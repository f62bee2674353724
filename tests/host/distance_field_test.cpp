#include "host/fonts/distance_field.h"

#include <gtest/gtest.h>

#include <cmath>

namespace qen::host {
namespace {

constexpr int kReach = 6;

float ValueOf(std::uint8_t texel) { return (static_cast<float>(texel) - 127.5F) / 127.5F * kReach; }

// The part of a pixel, given by its lower left corner, that lies in a disc around the origin.
float CoverageByDisc(float radius, float left, float bottom) {
  constexpr int kParts = 16;
  int inside = 0;
  for (int row = 0; row < kParts; ++row) {
    const float y = bottom + (static_cast<float>(row) + 0.5F) / kParts;
    for (int column = 0; column < kParts; ++column) {
      const float x = left + (static_cast<float>(column) + 0.5F) / kParts;
      inside += std::hypot(x, y) < radius ? 1 : 0;
    }
  }
  return static_cast<float>(inside) / (kParts * kParts);
}

// A disc of `radius` pixels around the origin, with smooth edges.
GlyphPicture Disc(float radius) {
  const auto half = static_cast<std::int32_t>(radius) + 2;
  GlyphPicture disc{-half, half, 2 * half, 2 * half, {}};
  for (std::int32_t row = 0; row < disc.height; ++row) {
    for (std::int32_t column = 0; column < disc.width; ++column) {
      const auto left = static_cast<float>(disc.left + column);
      const auto bottom = static_cast<float>(disc.top - row - 1);
      const float coverage = CoverageByDisc(radius, left, bottom);
      disc.texels.push_back(static_cast<std::uint8_t>(std::lround(coverage * 255.0F)));
    }
  }
  return disc;
}

TEST(DistanceFieldTest, TellsHowFarTheEdgeOfADiscIs) {
  constexpr float kRadius = 20.3F;
  DistanceField field;
  GlyphPicture made;
  field.Make(Disc(kRadius), kReach, made);
  ASSERT_EQ(made.texels.size(), static_cast<std::size_t>(made.width * made.height));
  std::size_t i = 0;
  for (std::int32_t row = 0; row < made.height; ++row) {
    for (std::int32_t column = 0; column < made.width; ++column, ++i) {
      const float x = static_cast<float>(made.left + column) + 0.5F;
      const float y = static_cast<float>(made.top - row) - 0.5F;
      const float exact = kRadius / DistanceField::kOversampling - std::hypot(x, y);
      if (std::abs(exact) > kReach - 0.5F) continue;
      // Near the edge it decides on the shape; farther away nobody sees it.
      const float tolerance = std::abs(exact) < 1.5F ? 0.06F : 0.2F;
      EXPECT_NEAR(ValueOf(made.texels[i]), exact, tolerance) << column << ' ' << row;
    }
  }
}

TEST(DistanceFieldTest, LeavesRoomAllAround) {
  DistanceField field;
  GlyphPicture made;
  for (const std::int32_t left : {-3, -2, 0, 5}) {
    GlyphPicture source{left, 7, 3, 5, std::vector<std::uint8_t>(15, 255)};
    field.Make(source, kReach, made);
    EXPECT_LE(made.left + kReach, std::floor(static_cast<float>(left) / 2.0F));
    EXPECT_GE(made.left + made.width - kReach, std::ceil(static_cast<float>(left + 3) / 2.0F));
    EXPECT_GE(made.top - kReach, 4);
    EXPECT_LE(made.top - made.height + kReach, 1);
    for (std::int32_t column = 0; column < made.width; ++column) {
      EXPECT_LT(made.texels[static_cast<std::size_t>(column)], 25);
    }
  }
}

}  // namespace
}  // namespace qen::host
