#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <random>

#include "engine/aabb.h"
#include "engine/camera.h"
#include "engine/matrix.h"
#include "engine/viewport.h"

namespace qen {
namespace {

constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();
constexpr std::uint32_t kRounds = 2000;

// Rules that hold for any values.
class Maths : public testing::Test {
 protected:
  float Any(float low, float high) { return low + (high - low) * static_cast<float>(random() % 10001) * 1e-4F; }
  Vec3 AnyVec(float most) { return {Any(-most, most), Any(-most, most), Any(-most, most)}; }
  float AnyWhole(int most) { return std::round(Any(static_cast<float>(-most), static_cast<float>(most))); }
  Vec3 AnyWholeVec(int most) { return {AnyWhole(most), AnyWhole(most), AnyWhole(most)}; }
  Matrix4x4 AnyTurn() {
    camera.SetLookAt({}, AnyVec(1), AnyVec(1));
    return camera.GetView();
  }

  std::mt19937 random{1};  // always the same: floats miss a few of a million rays at boxes that are flat
  Camera camera;
};

// Whether the ray from `eye` through a point meets a box of 10 x 4 x 6 units moved by the matrix.
bool Meets(const Matrix4x4& matrix, const Vec3& eye, const Vec3& through) {
  const Vec3 origin = matrix.Inverse() * eye;
  float distance = 0.0F;
  return AABB{{}, {5, 2, 3}}.Intersect(origin, matrix.Inverse() * (eye + (through - eye) * 0.01F) - origin, distance);
}

TEST_F(Maths, WhatIsFlattenedIsMetWhereItIsSeen) {
  for (std::uint32_t round = 0; round < kRounds; ++round) {
    Matrix4x4 stretch, flatten;
    stretch.SetScale(Any(0.5F, 2), Any(0.5F, 2), Any(0.5F, 2));
    flatten.SetScale(1, 1, std::array{0.0F, 1e-44F, 1e-20F, -1e-9F}[round % 4]);
    flatten.SetTranslation({40, -30, 0});
    const Matrix4x4 turn = round < 9 ? Matrix4x4::Identity : AnyTurn();
    const Matrix4x4 flat = stretch * (round % 9 == 0 ? Matrix4x4::Identity : AnyTurn()) * flatten * turn;
    const Vec3 middle = flat.GetTranslation();
    const Vec3 eye = turn * Vec3{Any(-59, 139), Any(-129, 69), -150};
    const Vec3 inside = flat * Vec3{Any(-4.5F, 4.5F), Any(-1.8F, 1.8F), Any(-2.7F, 2.7F)};
    EXPECT_TRUE(Meets(flat, eye, inside)) << round;

    const float angle = Any(0, 6.3F);
    const Vec3 way = turn * Vec3{std::cos(angle), std::sin(angle), 0};
    const auto reach = [&](const Vec3& corner) { return std::abs(Dot(flat * corner - middle, way)); };
    const float outside = 1.2F * (reach({5, 0, 0}) + reach({0, 2, 0}) + reach({0, 0, 3}));
    EXPECT_FALSE(Meets(flat, eye, middle + way * outside)) << round;
  }
  // Nothing, a line, and what is not finite.
  const Matrix4x4 line{{{1}, {2}, {3}, {0, 0, 0, 1}}}, broken{{{1}, {0, 1}, {0, kNan, 1}, {0, 0, 0, 1}}};
  for (const Matrix4x4& nothing : {Matrix4x4{}, line, broken}) EXPECT_FALSE(Meets(nothing, {0, 0, -150}, {}));
}

// Tries points along the ray, half a direction from each other: with whole numbers it enters a box at one of them, and
// never otherwise (-1).
float EntryOf(const AABB& box, const Vec3& origin, const Vec3& direction) {
  for (float entry = 0.0F; entry < 20.0F && !box.IsEmpty(); entry += 0.5F) {
    const Vec3 off = origin + direction * entry - box.center, half = box.halfSize;
    if (std::abs(off.x) <= half.x && std::abs(off.y) <= half.y && std::abs(off.z) <= half.z) return entry;
  }
  return -1.0F;
}

TEST_F(Maths, RaysMeetBoxesWhereTheyEnterThem) {
  for (std::uint32_t round = 0; round < 20 * kRounds; ++round) {
    AABB box{AnyWholeVec(2), AnyWholeVec(2)};
    box.halfSize = {std::abs(box.halfSize.x), std::abs(box.halfSize.y), std::abs(box.halfSize.z)};
    Vec3 origin = AnyWholeVec(5), direction = AnyWholeVec(2) * (round % 2 == 0 ? 1.0F : -1.0F);  // zeros of both signs
    const float wanted = EntryOf(box, origin, direction);
    float entry = -1.0F;
    EXPECT_EQ(box.Intersect(origin, direction, entry), wanted >= 0.0F);
    ASSERT_EQ(entry, wanted) << round;

    (round % 3 == 0 ? origin : round % 3 == 1 ? direction : box.center).y = round % 2 == 0 ? kNan : kInfinity;
    EXPECT_FALSE(box.Intersect(origin, direction, entry)) << round;
  }
}

TEST_F(Maths, CamerasKeepTheirViewFromWhatIsNone) {
  camera.SetProjection(2, kInfinity, 1, 1);
  EXPECT_NEAR((Vec4{0, 0, 2, 1} * camera.GetProjection()).z, 0.0F, 1e-5F);
  const Matrix4x4 before = camera.GetProjection();
  for (const float depth : {0.0F, 9.0F, kNan}) camera.SetProjection(depth, 9, 1, 1);
  for (const float aspect : {0.0F, kInfinity, kNan}) camera.SetProjection(1, 9, aspect, 1);
  for (const float fov : {0.0F, 4.0F, kNan}) camera.SetProjection(1, 9, 1, fov);
  for (const std::uint32_t width : {0U, 1U}) Viewport(&camera).Resize(width, 1 - width);
  for (int i = 0; i < 16; ++i) EXPECT_EQ(camera.GetProjection().m[i / 4][i % 4], before.m[i / 4][i % 4]) << i;
  // Along z without a direction; and whatever the direction, without one that is up.
  for (const Vec3& target : {Vec3{}, Vec3{0, 0, 1}, Vec3{kNan, 0, 0}, Vec3{0, 1, 0}}) {
    camera.SetLookAt({}, target, target);
    EXPECT_NEAR((camera.GetView() * Vec3{2, 1, 3}).Length(), std::sqrt(14.0F), 1e-5F);
    EXPECT_NEAR((camera.GetView() * Vec3{2, 1, 3}).z, target.y > 0 ? 1.0F : 3.0F, 1e-5F);
  }
}

}  // namespace
}  // namespace qen
