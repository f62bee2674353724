// The camera that pages are seen through.
#pragma once

#include "engine/matrix.h"
#include "engine/plane.h"
#include "engine/types.h"

namespace qen {

class QEN_API Camera {
 public:
  Camera();

  // Left-handed perspective, depth 0 to 1. `fov` is the vertical angle in radians for a view of shape `aspect`
  // (width / height): whatever the shape of the viewport, that much of the scene stays in sight, undistorted.
  void SetProjection(float nearPlane, float farPlane, float aspect, float fov);
  void SetLookAt(const Vec3& eye, const Vec3& target, const Vec3& up);

  // The shape of the viewport that the camera is used for; the viewport keeps it up to date.
  void SetViewAspect(float aspect);

  [[nodiscard]] const Matrix4x4& GetProjection() const { return projection_; }
  [[nodiscard]] const Matrix4x4& GetView() const { return view_; }

  Plane plane;  // through the eye, facing along the view; set by SetLookAt

 private:
  void Rebuild();

  Matrix4x4 projection_;
  Matrix4x4 view_;
  float near_ = 1.0F;
  float far_ = 80000.0F;
  float aspect_ = 4.0F / 3.0F;
  float fov_ = 0.7853982F;
  float viewAspect_ = 0.0F;  // 0: as aspect_
};

}  // namespace qen
