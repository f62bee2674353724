// The part of the window that is drawn to.
#pragma once

#include <cstdint>

#include "engine/types.h"

namespace qen {

class Camera;

class QEN_API Viewport {
 public:
  explicit Viewport(Camera* camera);  // the camera is not owned; may be null

  [[nodiscard]] std::uint32_t GetActualWidth() const { return width_; }  // pixels
  [[nodiscard]] std::uint32_t GetActualHeight() const { return height_; }
  [[nodiscard]] Camera* GetCamera() const { return camera_; }

  void Resize(std::uint32_t width, std::uint32_t height);  // also tells the camera

 private:
  Camera* camera_;
  std::uint32_t width_ = 0;
  std::uint32_t height_ = 0;
};

}  // namespace qen
