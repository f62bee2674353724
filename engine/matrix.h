// 4x4 float matrix: row-major, translation in the fourth row, points transformed as row vectors (p * M).
// A product A * B applies A first.
#pragma once

#include "engine/types.h"
#include "engine/vec.h"

namespace qen {

struct alignas(16) Matrix4x4 {
  float m[4][4] = {};  // all zero after construction

  QEN_API static const Matrix4x4 Identity;

  QEN_API void SetIdentity();

  // Replaces the fourth row's first three elements and leaves the rest unchanged.
  void SetTranslation(const Vec3& t) {
    m[3][0] = t.x;
    m[3][1] = t.y;
    m[3][2] = t.z;
  }
  [[nodiscard]] Vec3 GetTranslation() const { return {m[3][0], m[3][1], m[3][2]}; }

  // Becomes the matrix that scales along the axes.
  QEN_API void SetScale(float x, float y, float z);

  // Becomes the inverse of `source`. A transformation that flattens (one axis is less than a millionth of the longest,
  // or nothing) is inverted as if that were 1/256 of the longest: rays meet a flattened box where it is seen. What lost
  // more than one axis or is not finite has no inverse; then every point goes to one where no box is.
  QEN_API void SetInverse(const Matrix4x4& source);
  [[nodiscard]] QEN_API Matrix4x4 Inverse() const;
};

inline Matrix4x4 operator*(const Matrix4x4& a, const Matrix4x4& b) {
  Matrix4x4 product;
  for (int row = 0; row < 4; ++row) {
    for (int column = 0; column < 4; ++column) {
      product.m[row][column] = a.m[row][0] * b.m[0][column] + a.m[row][1] * b.m[1][column] +
                               a.m[row][2] * b.m[2][column] + a.m[row][3] * b.m[3][column];
    }
  }
  return product;
}

// The point p transformed, translation included, without a perspective division.
inline Vec3 operator*(const Matrix4x4& t, const Vec3& p) {
  return {p.x * t.m[0][0] + p.y * t.m[1][0] + p.z * t.m[2][0] + t.m[3][0],
          p.x * t.m[0][1] + p.y * t.m[1][1] + p.z * t.m[2][1] + t.m[3][1],
          p.x * t.m[0][2] + p.y * t.m[1][2] + p.z * t.m[2][2] + t.m[3][2]};
}

inline Vec4 operator*(const Vec4& p, const Matrix4x4& t) {
  return {p.x * t.m[0][0] + p.y * t.m[1][0] + p.z * t.m[2][0] + p.w * t.m[3][0],
          p.x * t.m[0][1] + p.y * t.m[1][1] + p.z * t.m[2][1] + p.w * t.m[3][1],
          p.x * t.m[0][2] + p.y * t.m[1][2] + p.z * t.m[2][2] + p.w * t.m[3][2],
          p.x * t.m[0][3] + p.y * t.m[1][3] + p.z * t.m[2][3] + p.w * t.m[3][3]};
}

}  // namespace qen
