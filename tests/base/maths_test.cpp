#include <gtest/gtest.h>

#include <limits>
#include <numbers>

#include "engine/aabb.h"
#include "engine/camera.h"
#include "engine/matrix.h"
#include "engine/viewport.h"

namespace qen {
namespace {

constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();

void ExpectNear(const Matrix4x4& got, const Matrix4x4& wanted, float tolerance) {
  for (int row = 0; row < 4; ++row) {
    for (int column = 0; column < 4; ++column) {
      EXPECT_NEAR(got.m[row][column], wanted.m[row][column], tolerance) << row << ',' << column;
    }
  }
}

TEST(Matrix, ProductAppliesTheLeftFactorFirst) {
  Matrix4x4 scale;
  scale.SetScale(2.0F, 3.0F, 4.0F);
  Matrix4x4 move = Matrix4x4::Identity;
  move.SetTranslation({10.0F, 20.0F, 30.0F});
  EXPECT_EQ(((scale * move) * Vec3{1.0F, 1.0F, 1.0F}), (Vec3{12.0F, 23.0F, 34.0F}));
  EXPECT_EQ(((move * scale) * Vec3{1.0F, 1.0F, 1.0F}), (Vec3{22.0F, 63.0F, 124.0F}));
}

TEST(Matrix, InverseOfGeneralMatrices) {
  // Has a non-trivial fourth column, so that every cofactor counts.
  const Matrix4x4 general{{{1, 2, 0, 1}, {0, 3, 1, 2}, {4, 0, 1, 0}, {2, 1, 3, 1}}};
  ExpectNear(general * general.Inverse(), Matrix4x4::Identity, 1e-6F);
  ExpectNear(general.Inverse() * general, Matrix4x4::Identity, 1e-6F);

  Matrix4x4 tiny;
  tiny.SetScale(1e-4F, 1e-4F, 1e-4F);
  tiny.SetTranslation({5.0F, 6.0F, 7.0F});
  const Vec3 back = tiny.Inverse() * (tiny * Vec3{3.0F, -2.0F, 1.0F});
  EXPECT_NEAR(back.x, 3.0F, 2e-2F);
  EXPECT_NEAR(tiny.Inverse().m[0][0], 1e4F, 1.0F);
}

// Whether the ray from (0, 0, -150) through a point at z = 0 meets a box of 10 x 4 x 6 units moved by the matrix.
bool Meets(const Matrix4x4& matrix, float x, float y) {
  const Vec3 eye{0, 0, -150};
  const Vec3 origin = matrix.Inverse() * eye;
  float distance = 0.0F;
  return AABB{{}, {5, 2, 3}}.Intersect(origin, matrix.Inverse() * (eye + Vec3{x, y, 150} * 0.01F) - origin, distance);
}

TEST(Matrix, WhatIsFlattenedIsMetWhereItIsSeen) {
  // Local y comes towards the viewer, z is up. In the last one the box is turned by 60 degrees before it is flattened.
  const float c = 0.5F, s = 0.8660254F;
  for (const float depth : {0.0F, 1e-44F, 1e-20F, -1e-9F}) {
    const Matrix4x4 level{{{2, 0, 0, 0}, {0, 0, depth, 0}, {0, 2, 0, 0}, {40, -30, 0, 1}}};
    EXPECT_TRUE(Meets(level, 40, -30) && Meets(level, 49.8F, -35.8F));
    EXPECT_FALSE(Meets(level, 50.2F, -30) || Meets(level, 40, -36.2F) || Meets(level, 0, 0));
    const Matrix4x4 turned{{{c, 0, s * depth, 0}, {-s, 0, c * depth, 0}, {0, 1, 0, 0}, {40, -30, 0, 1}}};
    EXPECT_TRUE(Meets(turned, 44.1F, -32.9F) && Meets(turned, 35.9F, -27.1F));  // 5 x 0.5 + 2 x 0.866 = 4.232
    EXPECT_FALSE(Meets(turned, 44.4F, -30) || Meets(turned, 35.6F, -30) || Meets(turned, 40, -33.1F));
  }
}

TEST(Matrix, WhatIsScaledToNothingIsNotMet) {
  Matrix4x4 line;
  line.SetScale(1.0F, 0.0F, 0.0F);
  Matrix4x4 dependent{{{1, 2, 3, 4}, {2, 4, 6, 8}, {0, 1, 0, 1}, {5, 0, 0, 1}}};
  Matrix4x4 broken = Matrix4x4::Identity;
  broken.m[2][1] = kNan;
  Matrix4x4 endless = Matrix4x4::Identity;
  endless.m[3][0] = kInfinity;
  Matrix4x4 point = Matrix4x4::Identity;
  point.SetScale(0.0F, 0.0F, 0.0F);
  for (const Matrix4x4& m : {line, dependent, broken, endless, point, Matrix4x4{}}) EXPECT_FALSE(Meets(m, 0, 0));
}

TEST(Aabb, Intersect) {
  const AABB box{{10.0F, 0.0F, 0.0F}, {1.0F, 2.0F, 3.0F}};
  const AABB flat{{0.0F, 5.0F, 0.0F}, {2.0F, 0.0F, 2.0F}};
  const struct {
    const char* what = "";
    AABB box;
    Vec3 origin, direction;
    bool hit = false;
    float distance = 0.0F;
  } kCases[] = {
      {"straight on", box, {0, 0, 0}, {1, 0, 0}, true, 9.0F},
      {"in multiples of the direction", box, {0, 0, 0}, {4.5F, 0, 0}, true, 2.0F},
      {"away from it", box, {0, 0, 0}, {-1, 0, 0}, false, 0.0F},
      {"from behind", box, {20, 0, 0}, {-1, 0, 0}, true, 9.0F},
      {"from inside", box, {10, 1, 1}, {0, 1, 0}, true, 0.0F},
      {"past it, along an axis", box, {0, 2.5F, 0}, {1, 0, 0}, false, 0.0F},
      {"negative zero in the direction", box, {0, 0, 0}, {1, -0.0F, -0.0F}, true, 9.0F},
      {"along a face", box, {0, 2, 3}, {1, 0, 0}, true, 9.0F},
      {"slanted through a corner region", box, {8, 2.5F, 0}, {1, -1, 0}, true, 1.0F},
      {"slanted past a corner", box, {8, 4.5F, 0}, {1, -0.5F, 0}, false, 0.0F},
      {"flat box from above", flat, {1, 9, 1}, {0, -2, 0}, true, 2.0F},
      {"flat box in its plane", flat, {-4, 5, 0}, {1, 0, 0}, true, 2.0F},
      {"flat box beside its plane", flat, {-4, 5.1F, 0}, {1, 0, 0}, false, 0.0F},
      {"empty box", {}, {0, 0, 0}, {1, 0, 0}, false, 0.0F},
      {"no direction, outside", box, {0, 0, 0}, {0, 0, 0}, false, 0.0F},
      {"no number in the direction", box, {0, 0, 0}, {1, kNan, 0}, false, 0.0F},
      {"no number in the origin", box, {kNan, 0, 0}, {1, 0, 0}, false, 0.0F},
      {"no number in the box", {{kNan, 0, 0}, {1, 1, 1}}, {0, 0, 0}, {1, 0, 0}, false, 0.0F},
  };
  for (const auto& c : kCases) {
    float distance = -1.0F;
    EXPECT_EQ(c.box.Intersect(c.origin, c.direction, distance), c.hit) << c.what;
    if (c.hit) {
      EXPECT_FLOAT_EQ(distance, c.distance) << c.what;
    } else {
      EXPECT_EQ(distance, -1.0F) << c.what;
    }
  }
}

constexpr float kRightAngle = std::numbers::pi_v<float> / 2.0F;  // its half has the cotangent 1

TEST(Camera, ProjectionInItsOwnShape) {
  Camera camera;
  camera.SetProjection(1.0F, 101.0F, 2.0F, kRightAngle);
  ExpectNear(camera.GetProjection(), {{{0.5F, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1.01F, 1}, {0, 0, -1.01F, 0}}}, 1e-6F);
  // The near plane comes to depth 0, the far plane to 1.
  for (const auto& [z, depth] : {std::pair{1.0F, 0.0F}, {101.0F, 1.0F}}) {
    const Vec4 clip = Vec4{0.0F, 0.0F, z, 1.0F} * camera.GetProjection();
    EXPECT_NEAR(clip.z / clip.w, depth, 1e-5F);
  }
  camera.SetProjection(2.0F, kInfinity, 2.0F, kRightAngle);
  ExpectNear(camera.GetProjection(), {{{0.5F, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 1}, {0, 0, -2, 0}}}, 1e-6F);
}

TEST(Camera, KeepsTheSceneInSightWhateverTheViewport) {
  Camera camera;
  camera.SetProjection(1.0F, 100.0F, 4.0F / 3.0F, kRightAngle);
  Viewport viewport(&camera);
  const struct {
    std::uint32_t width, height;
    float p11, p22;
  } kCases[] = {
      {800, 600, 0.75F, 1.0F},
      {1600, 600, 0.375F, 1.0F},  // wider: the same height, more at the sides
      {600, 600, 0.75F, 0.75F},   // narrower: the same width, more above and below
      {300, 600, 0.75F, 0.375F},
  };
  for (const auto& c : kCases) {
    viewport.Resize(c.width, c.height);
    EXPECT_NEAR(camera.GetProjection().m[0][0], c.p11, 1e-6F) << c.width;
    EXPECT_NEAR(camera.GetProjection().m[1][1], c.p22, 1e-6F) << c.width;
  }
  viewport.Resize(800, 0);
  EXPECT_EQ(camera.GetProjection().m[1][1], 0.375F) << "a viewport without area changes nothing";
  EXPECT_EQ(viewport.GetActualHeight(), 0U);
}

TEST(Camera, BrokenProjectionsChangeNothing) {
  Camera camera;
  const Matrix4x4 before = camera.GetProjection();
  camera.SetProjection(0.0F, 10.0F, 1.0F, 1.0F);
  camera.SetProjection(10.0F, 10.0F, 1.0F, 1.0F);
  camera.SetProjection(kInfinity, kInfinity, 1.0F, 1.0F);
  camera.SetProjection(1.0F, 10.0F, 0.0F, 1.0F);
  camera.SetProjection(1.0F, 10.0F, 1.0F, 4.0F);
  camera.SetProjection(1.0F, 10.0F, 1.0F, kNan);
  ExpectNear(camera.GetProjection(), before, 0.0F);
}

TEST(Camera, LooksAlongZWithXToTheRight) {
  Camera camera;
  camera.SetLookAt({0.0F, 0.0F, -144.1F}, {}, {0.0F, 1.0F, 0.0F});
  const Vec3 seen = camera.GetView() * Vec3{3.0F, 4.0F, 5.0F};
  EXPECT_FLOAT_EQ(seen.x, 3.0F);
  EXPECT_FLOAT_EQ(seen.y, 4.0F);
  EXPECT_FLOAT_EQ(seen.z, 149.1F);
  EXPECT_FLOAT_EQ(camera.plane.DistanceTo({3.0F, 4.0F, 5.0F}), 149.1F);

  camera.SetLookAt({10.0F, 0.0F, 0.0F}, {11.0F, 0.0F, 0.0F}, {0.0F, 1.0F, 0.0F});
  const Vec3 aside = camera.GetView() * Vec3{15.0F, 1.0F, -2.0F};
  EXPECT_EQ(aside, (Vec3{2.0F, 1.0F, 5.0F}));

  for (const Vec3& target : {Vec3{}, Vec3{0.0F, 1.0F, 0.0F}, Vec3{kNan, 0.0F, 0.0F}}) {
    camera.SetLookAt({}, target, {0.0F, 1.0F, 0.0F});
    ExpectNear(camera.GetView() * camera.GetView().Inverse(), Matrix4x4::Identity, 1e-5F);
  }
}

}  // namespace
}  // namespace qen
