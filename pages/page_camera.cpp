#include "pages/page_camera.h"

#include "engine/camera.h"
#include "engine/scene.h"

namespace qen {
namespace {

constexpr float kNear = 1.0F;
constexpr float kFar = 80000.0F;
constexpr float kAspect = 1.3333334F;
constexpr float kFieldOfView = 0.7853982F;  // a quarter of pi
constexpr Vec3 kEye{0.0F, 0.0F, -144.1F};
constexpr Vec3 kUp{0.0F, 1.0F, 0.0F};

const String kCameraNode = u"Camera01";
constexpr double kAngleFactor = 1.3F;  // scene files hold the angle times so much, in single precision

}  // namespace

void SetDefaultCamera(Camera& camera) {
  camera.SetProjection(kNear, kFar, kAspect, kFieldOfView);
  camera.SetLookAt(kEye, Vec3{}, kUp);
}

void SetSceneCamera(Camera& camera, const SimpleScene& scene) {
  const TMNode* node = scene.FindMapNode(kCameraNode);
  if (node == nullptr || node->cameraParameters == nullptr) return;
  const float* parameters = node->cameraParameters;
  camera.SetProjection(parameters[2], parameters[3], kAspect, static_cast<float>(parameters[1] / kAngleFactor));
}

}  // namespace qen
