#include "engine/matrix.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace qen {
namespace {

using Doubles = std::array<std::array<double, 4>, 4>;
using Triple = std::array<double, 3>;

Doubles Widen(const Matrix4x4& source) {
  Doubles wide;
  for (std::size_t row = 0; row < 4; ++row) {
    for (std::size_t column = 0; column < 4; ++column) wide[row][column] = static_cast<double>(source.m[row][column]);
  }
  return wide;
}

// The product of the rows' lengths: the determinant's upper bound, which makes the test for zero independent of scale.
double RowLengths(const Doubles& a) {
  double product = 1.0;
  for (const auto& row : a) product *= std::sqrt(row[0] * row[0] + row[1] * row[1] + row[2] * row[2] + row[3] * row[3]);
  return product;
}

// The adjugate, from the 2x2 determinants of the upper two rows (s) and of the lower two (c). Returns the determinant.
double Adjugate(const Doubles& a, Doubles& out) {
  const auto minor = [&a](std::size_t row, std::size_t i, std::size_t j) {
    return a[row][i] * a[row + 1][j] - a[row][j] * a[row + 1][i];
  };
  const std::array s{minor(0, 0, 1), minor(0, 0, 2), minor(0, 0, 3), minor(0, 1, 2), minor(0, 1, 3), minor(0, 2, 3)};
  const std::array c{minor(2, 0, 1), minor(2, 0, 2), minor(2, 0, 3), minor(2, 1, 2), minor(2, 1, 3), minor(2, 2, 3)};
  out[0] = {a[1][1] * c[5] - a[1][2] * c[4] + a[1][3] * c[3], -a[0][1] * c[5] + a[0][2] * c[4] - a[0][3] * c[3],
            a[3][1] * s[5] - a[3][2] * s[4] + a[3][3] * s[3], -a[2][1] * s[5] + a[2][2] * s[4] - a[2][3] * s[3]};
  out[1] = {-a[1][0] * c[5] + a[1][2] * c[2] - a[1][3] * c[1], a[0][0] * c[5] - a[0][2] * c[2] + a[0][3] * c[1],
            -a[3][0] * s[5] + a[3][2] * s[2] - a[3][3] * s[1], a[2][0] * s[5] - a[2][2] * s[2] + a[2][3] * s[1]};
  out[2] = {a[1][0] * c[4] - a[1][1] * c[2] + a[1][3] * c[0], -a[0][0] * c[4] + a[0][1] * c[2] - a[0][3] * c[0],
            a[3][0] * s[4] - a[3][1] * s[2] + a[3][3] * s[0], -a[2][0] * s[4] + a[2][1] * s[2] - a[2][3] * s[0]};
  out[3] = {-a[1][0] * c[3] + a[1][1] * c[1] - a[1][2] * c[0], a[0][0] * c[3] - a[0][1] * c[1] + a[0][2] * c[0],
            -a[3][0] * s[3] + a[3][1] * s[1] - a[3][2] * s[0], a[2][0] * s[3] - a[2][1] * s[1] + a[2][2] * s[0]};
  return s[0] * c[5] - s[1] * c[4] + s[2] * c[3] + s[3] * c[2] - s[4] * c[1] + s[5] * c[0];
}

double Dot(const Triple& a, const Triple& b) { return a[0] * b[0] + a[1] * b[1] + a[2] * b[2]; }
double Length(const Triple& a) { return std::sqrt(Dot(a, a)); }

Triple Cross(const Triple& a, const Triple& b) {
  return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

// Where everything lies in one plane, makes that a thin slab: a ray then has a way through it in the space that was
// flattened. The directions that were lost lead out of the plane.
void ThickenFlat(Doubles& a) {
  constexpr double kLost = 1e-6;
  constexpr double kThickness = 1.0 / 256.0;  // too little to see, and enough for what floats can tell
  if (a[0][3] != 0.0 || a[1][3] != 0.0 || a[2][3] != 0.0 || a[3][3] != 1.0) return;
  std::array<Triple, 3> axes{};
  for (std::size_t i = 0; i < 3; ++i) axes[i] = {a[i][0], a[i][1], a[i][2]};
  const std::array faces{Cross(axes[1], axes[2]), Cross(axes[2], axes[0]), Cross(axes[0], axes[1])};
  const Triple& widest = *std::ranges::max_element(faces, {}, Length);
  const double area = Length(widest);
  const double longest = std::max({Length(axes[0]), Length(axes[1]), Length(axes[2])});
  const bool flat = std::abs(Dot(axes[0], faces[0])) <= kLost * longest * area && area > kLost * longest * longest;
  if (!flat) return;

  const Triple lost{Dot(faces[0], widest), Dot(faces[1], widest), Dot(faces[2], widest)};
  const double out = kThickness * longest / (Length(lost) * area);
  for (std::size_t i = 0; i < 3; ++i) {
    for (std::size_t j = 0; j < 3; ++j) a[i][j] += lost[i] * widest[j] * out;
  }
}

// Takes every point to one that lies outside of every box, whichever way it is looked for.
Matrix4x4 ToNowhere() {
  constexpr float kFar = std::numeric_limits<float>::max();
  Matrix4x4 nowhere;
  nowhere.SetTranslation({kFar, -kFar, kFar});
  nowhere.m[3][3] = 1.0F;
  return nowhere;
}

}  // namespace

constinit const Matrix4x4 Matrix4x4::Identity{
    {{1.0F, 0.0F, 0.0F, 0.0F}, {0.0F, 1.0F, 0.0F, 0.0F}, {0.0F, 0.0F, 1.0F, 0.0F}, {0.0F, 0.0F, 0.0F, 1.0F}}};

void Matrix4x4::SetIdentity() { *this = Identity; }

void Matrix4x4::SetScale(float x, float y, float z) {
  *this = Identity;
  m[0][0] = x;
  m[1][1] = y;
  m[2][2] = z;
}

void Matrix4x4::SetInverse(const Matrix4x4& source) {
  constexpr double kSingular = 1e-14;
  Doubles wide = Widen(source);
  ThickenFlat(wide);
  Doubles adjugate;
  const double determinant = Adjugate(wide, adjugate);
  *this = ToNowhere();
  if (!(std::abs(determinant) > kSingular * RowLengths(wide)) || !std::isfinite(determinant)) return;

  Matrix4x4 inverse;
  for (std::size_t row = 0; row < 4; ++row) {
    for (std::size_t column = 0; column < 4; ++column) {
      inverse.m[row][column] = static_cast<float>(adjugate[row][column] / determinant);
      if (!std::isfinite(inverse.m[row][column])) return;
    }
  }
  *this = inverse;
}

Matrix4x4 Matrix4x4::Inverse() const {
  Matrix4x4 inverse;
  inverse.SetInverse(*this);
  return inverse;
}

}  // namespace qen
