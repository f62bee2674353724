#include "engine/viewport.h"

#include "engine/camera.h"

namespace qen {

Viewport::Viewport(Camera* camera) : camera_(camera) {}

void Viewport::Resize(std::uint32_t width, std::uint32_t height) {
  width_ = width;
  height_ = height;
  if (camera_ == nullptr || width == 0 || height == 0) return;
  camera_->SetViewAspect(static_cast<float>(width) / static_cast<float>(height));
}

}  // namespace qen
