#include "engine/camera.h"

#include <cmath>
#include <numbers>

#include "base/record.h"

namespace qen {
namespace {

bool IsDirection(const Vec3& v) { return std::isfinite(v.Length()) && v.Length() > 0.0F; }

// A unit vector at right angles to `forward`, as close to `up` x `forward` as it can be had.
Vec3 RightOf(const Vec3& up, const Vec3& forward) {
  for (const Vec3& candidate : {up, Vec3{0.0F, 1.0F, 0.0F}, Vec3{0.0F, 0.0F, 1.0F}}) {
    Vec3 right = Cross(candidate, forward);
    if (!IsDirection(right)) continue;
    right.Normalize();
    return right;
  }
  return {1.0F, 0.0F, 0.0F};
}

}  // namespace

Camera::Camera() : view_(Matrix4x4::Identity) { Rebuild(); }

void Camera::SetProjection(float nearPlane, float farPlane, float aspect, float fov) {
  base::Record("Camera::SetProjection", nearPlane, farPlane, aspect, fov);
  // Written so that NaN fails every comparison: a broken camera node leaves the camera as it was.
  const bool valid = nearPlane > 0.0F && farPlane > nearPlane && aspect > 0.0F && std::isfinite(aspect) && fov > 0.0F &&
                     fov < std::numbers::pi_v<float>;
  if (!valid) return;
  near_ = nearPlane;
  far_ = farPlane;
  aspect_ = aspect;
  fov_ = fov;
  Rebuild();
}

void Camera::SetViewAspect(float aspect) {
  if (!(aspect > 0.0F) || !std::isfinite(aspect)) return;
  viewAspect_ = aspect;
  Rebuild();
}

void Camera::Rebuild() {
  const float cotangent = 1.0F / std::tan(fov_ * 0.5F);
  const float shape = viewAspect_ > 0.0F ? viewAspect_ : aspect_;
  const bool wide = shape >= aspect_;
  projection_ = Matrix4x4{};
  // A wider view shows more at the sides; a narrower one keeps the width and shows more above and below.
  projection_.m[0][0] = wide ? cotangent / shape : cotangent / aspect_;
  projection_.m[1][1] = wide ? cotangent : cotangent / aspect_ * shape;
  const float depth = std::isfinite(far_) ? far_ / (far_ - near_) : 1.0F;
  projection_.m[2][2] = depth;
  projection_.m[2][3] = 1.0F;
  projection_.m[3][2] = -near_ * depth;
}

void Camera::SetLookAt(const Vec3& eye, const Vec3& target, const Vec3& up) {
  base::Record("Camera::SetLookAt", eye, target, up);
  Vec3 forward = target - eye;
  if (!IsDirection(forward)) forward = {0.0F, 0.0F, 1.0F};
  forward.Normalize();
  const Vec3 right = RightOf(up, forward);
  const Vec3 top = Cross(forward, right);
  view_ = Matrix4x4{{{right.x, top.x, forward.x, 0.0F},
                     {right.y, top.y, forward.y, 0.0F},
                     {right.z, top.z, forward.z, 0.0F},
                     {-Dot(right, eye), -Dot(top, eye), -Dot(forward, eye), 1.0F}}};
  plane = {forward, -Dot(forward, eye)};
}

}  // namespace qen
