// The picture that frames are drawn into: many samples a pixel, then resolved to one.
#pragma once

#include <cstdint>

#include "base/backends/image.h"
#include "host/render/gl_objects.h"

namespace qen::host {

class RenderTarget {
 public:
  explicit RenderTarget(int samples) : wanted_(samples) {}

  // Makes drawing go here, in the given size in pixels. Takes fewer samples, down to none, where the driver cannot give
  // as many; throws std::runtime_error when it cannot give any picture of that size.
  void Begin(std::int32_t width, std::int32_t height);
  void Resolve();
  void CopyToWindow() const;            // what was resolved, to the context's window of the same size
  void Read(base::Image& image) const;  // what was resolved, opaque
  [[nodiscard]] bool IsMultisampled() const { return samples_ > 0; }

 private:
  void Allocate(std::int32_t width, std::int32_t height);
  bool TryAllocate(int samples);

  GlFramebuffer drawn_;
  GlRenderbuffer drawnColor_;
  GlRenderbuffer depth_;
  GlFramebuffer resolved_;
  GlRenderbuffer resolvedColor_;
  int wanted_;
  int samples_ = 0;
  std::int32_t width_ = 0;
  std::int32_t height_ = 0;
};

}  // namespace qen::host
