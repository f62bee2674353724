#include "base/pose.h"

#include <algorithm>
#include <cmath>

namespace qen::base {
namespace {

bool IsFinite(const Vec3& v) { return std::isfinite(v.x) && std::isfinite(v.y) && std::isfinite(v.z); }
bool IsFinite(const Quaternion& q) { return IsFinite(Vec3{q.x, q.y, q.z}) && std::isfinite(q.w); }

Quaternion operator+(const Quaternion& a, const Quaternion& b) { return {a.x + b.x, a.y + b.y, a.z + b.z, a.w + b.w}; }
Quaternion operator*(const Quaternion& q, float s) { return {q.x * s, q.y * s, q.z * s, q.w * s}; }
float Dot(const Quaternion& a, const Quaternion& b) { return a.x * b.x + a.y * b.y + a.z * b.z + a.w * b.w; }

Vec3 Normalized(const Vec3& v) { return v; }
Quaternion Normalized(const Quaternion& q) {
  const float length = std::sqrt(Dot(q, q));
  return length > 0.0F ? q * (1.0F / length) : Quaternion{};
}

Vec3 Blend(const Vec3& a, const Vec3& b, float t) { return a * (1.0F - t) + b * t; }

// Along the shorter arc, with constant speed.
Quaternion Blend(const Quaternion& a, const Quaternion& b, float t) {
  constexpr float kAlmostEqual = 0.9995F;
  const float cosine = Dot(a, b);
  const Quaternion end = cosine < 0.0F ? b * -1.0F : b;
  if (std::abs(cosine) > kAlmostEqual) return Normalized(a * (1.0F - t) + end * t);
  const float angle = std::acos(std::abs(cosine));
  return Normalized((a * std::sin((1.0F - t) * angle) + end * std::sin(t * angle)) * (1.0F / std::sin(angle)));
}

std::size_t ValuesPerKey(Interpolation interpolation) { return interpolation == Interpolation::Cubic ? 3 : 1; }

template <class T>
const T& ValueOf(const Track<T>& track, std::size_t key) {
  return track.interpolation == Interpolation::Cubic ? track.values[3 * key + 1] : track.values[key];
}

// Hermite's cubic between two keys; tangents are for a second.
template <class T>
T Cubic(const Track<T>& track, std::size_t key, float t, float interval) {
  const T& outTangent = track.values[3 * key + 2];
  const T& inTangent = track.values[3 * (key + 1)];
  const float t2 = t * t;
  const float t3 = t2 * t;
  return Normalized(ValueOf(track, key) * (2.0F * t3 - 3.0F * t2 + 1.0F) +
                    outTangent * ((t3 - 2.0F * t2 + t) * interval) + ValueOf(track, key + 1) * (3.0F * t2 - 2.0F * t3) +
                    inTangent * ((t3 - t2) * interval));
}

template <class T>
T SampleTrack(const Track<T>& track, float seconds) {
  const auto after = std::ranges::upper_bound(track.times, seconds);
  if (after == track.times.begin()) return Normalized(ValueOf(track, 0));
  const auto key = static_cast<std::size_t>(after - track.times.begin()) - 1;
  if (after == track.times.end() || track.interpolation == Interpolation::Step) return Normalized(ValueOf(track, key));
  const float interval = *after - track.times[key];
  const float t = (seconds - track.times[key]) / interval;
  if (track.interpolation == Interpolation::Cubic) return Cubic(track, key, t, interval);
  return Blend(Normalized(ValueOf(track, key)), Normalized(ValueOf(track, key + 1)), t);
}

template <class T>
bool IsSoundTrack(const Track<T>& track) {
  const bool finite = std::ranges::all_of(track.times, [](float t) { return std::isfinite(t); }) &&
                      std::ranges::all_of(track.values, [](const T& value) { return IsFinite(value); });
  return finite && !track.times.empty() && std::ranges::is_sorted(track.times) &&
         track.values.size() == track.times.size() * ValuesPerKey(track.interpolation);
}

}  // namespace

bool IsSound(const Track<Vec3>& track) { return IsSoundTrack(track); }
bool IsSound(const Track<Quaternion>& track) { return IsSoundTrack(track); }

Vec3 Sample(const Track<Vec3>& track, float seconds) { return SampleTrack(track, seconds); }
Quaternion Sample(const Track<Quaternion>& track, float seconds) { return SampleTrack(track, seconds); }

void ApplyAnimation(const Animation& animation, float frame, std::span<Pose> poses) {
  const float seconds = frame / kFramesPerSecond;
  for (const Animation::Channel& channel : animation.channels) {
    Pose& pose = poses[channel.node];
    if (!channel.translation.times.empty()) pose.translation = Sample(channel.translation, seconds);
    if (!channel.rotation.times.empty()) pose.rotation = Sample(channel.rotation, seconds);
    if (!channel.scale.times.empty()) pose.scale = Sample(channel.scale, seconds);
  }
}

Matrix4x4 ToMatrix(const Pose& pose) {
  const Quaternion q = Normalized(pose.rotation);
  const Vec3 x{1.0F - 2.0F * (q.y * q.y + q.z * q.z), 2.0F * (q.x * q.y + q.z * q.w), 2.0F * (q.x * q.z - q.y * q.w)};
  const Vec3 y{2.0F * (q.x * q.y - q.z * q.w), 1.0F - 2.0F * (q.x * q.x + q.z * q.z), 2.0F * (q.y * q.z + q.x * q.w)};
  const Vec3 z{2.0F * (q.x * q.z + q.y * q.w), 2.0F * (q.y * q.z - q.x * q.w), 1.0F - 2.0F * (q.x * q.x + q.y * q.y)};
  const Vec3& s = pose.scale;
  const Vec3& t = pose.translation;
  return Matrix4x4{{{x.x * s.x, x.y * s.x, x.z * s.x, 0.0F},
                    {y.x * s.y, y.y * s.y, y.z * s.y, 0.0F},
                    {z.x * s.z, z.y * s.z, z.z * s.z, 0.0F},
                    {t.x, t.y, t.z, 1.0F}}};
}

Matrix4x4 ToWorld(const Matrix4x4& global) {
  // Local to glTF exchanges the second and third coordinate, that is these rows; glTF to world turns z round.
  const auto turned = [&global](std::size_t row, std::size_t target, Matrix4x4& world) {
    for (std::size_t column = 0; column < 4; ++column) {
      world.m[target][column] = column == 2 ? 0.0F - global.m[row][column] : global.m[row][column];
    }
  };
  Matrix4x4 world;
  turned(0, 0, world);
  turned(2, 1, world);
  turned(1, 2, world);
  turned(3, 3, world);
  return world;
}

}  // namespace qen::base
