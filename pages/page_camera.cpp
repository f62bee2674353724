#include "pages/page_camera.h"

#include "engine/camera.h"
#include "engine/scene.h"
#include "formats/page_view.h"

namespace qen {
namespace {

constexpr float kAspect = 1.3333334F;
constexpr Vec3 kUp{0.0F, 1.0F, 0.0F};

const String kCameraNode(formats::kCameraNode);
constexpr double kAngleFactor = 1.3F;  // scene files hold the angle times so much, in single precision

}  // namespace

void SetDefaultCamera(Camera& camera) {
  camera.SetProjection(formats::kNearPlane, formats::kFarPlane, kAspect, formats::kFieldOfView);
  camera.SetLookAt(formats::kEye, Vec3{}, kUp);
}

void SetSceneCamera(Camera& camera, const SimpleScene& scene) {
  const TMNode* node = scene.FindMapNode(kCameraNode);
  if (node == nullptr || node->cameraParameters == nullptr) return;
  const float* parameters = node->cameraParameters;
  camera.SetProjection(parameters[2], parameters[3], kAspect, static_cast<float>(parameters[1] / kAngleFactor));
}

}  // namespace qen
