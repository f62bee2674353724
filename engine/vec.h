// Three- and four-component float vectors.
#pragma once

#include <cmath>

namespace qen {

struct Vec3 {
  float x = 0.0F;
  float y = 0.0F;
  float z = 0.0F;

  constexpr Vec3& operator+=(const Vec3& o) {
    x += o.x;
    y += o.y;
    z += o.z;
    return *this;
  }
  friend constexpr Vec3 operator+(Vec3 a, const Vec3& b) { return a += b; }
  friend constexpr Vec3 operator-(const Vec3& a, const Vec3& b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
  friend constexpr Vec3 operator-(const Vec3& a) { return {-a.x, -a.y, -a.z}; }
  friend constexpr Vec3 operator*(const Vec3& a, float s) { return {a.x * s, a.y * s, a.z * s}; }
  friend constexpr bool operator==(const Vec3&, const Vec3&) = default;

  [[nodiscard]] float Length() const { return std::sqrt(x * x + y * y + z * z); }

  // Scales to length 1; a zero vector stays zero.
  void Normalize() {
    const float length = Length();
    if (length > 0.0F) *this = *this * (1.0F / length);
  }
};

constexpr float Dot(const Vec3& a, const Vec3& b) { return a.x * b.x + a.y * b.y + a.z * b.z; }

constexpr Vec3 Cross(const Vec3& a, const Vec3& b) {
  return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

struct Vec4 {
  float x = 0.0F;
  float y = 0.0F;
  float z = 0.0F;
  float w = 0.0F;

  friend constexpr Vec4 operator+(const Vec4& a, const Vec4& b) { return {a.x + b.x, a.y + b.y, a.z + b.z, a.w + b.w}; }
  friend constexpr Vec4 operator/(const Vec4& a, float s) { return {a.x / s, a.y / s, a.z / s, a.w / s}; }
};

}  // namespace qen
