#include "host/render/render_target.h"

#include <algorithm>
#include <stdexcept>
#include <string>

namespace qen::host {
namespace {

void Attach(const GlFramebuffer& frame, GLenum point, const GlRenderbuffer& buffer) {
  glBindFramebuffer(GL_FRAMEBUFFER, frame.Get());
  glFramebufferRenderbuffer(GL_FRAMEBUFFER, point, GL_RENDERBUFFER, buffer.Get());
}

void Reserve(const GlRenderbuffer& buffer, int samples, GLenum format, std::int32_t width, std::int32_t height) {
  glBindRenderbuffer(GL_RENDERBUFFER, buffer.Get());
  glRenderbufferStorageMultisample(GL_RENDERBUFFER, samples, format, width, height);
}

bool IsComplete(const GlFramebuffer& frame) {
  glBindFramebuffer(GL_FRAMEBUFFER, frame.Get());
  return glCheckFramebufferStatus(GL_FRAMEBUFFER) == GL_FRAMEBUFFER_COMPLETE;
}

}  // namespace

bool RenderTarget::TryAllocate(int samples) {
  Reserve(drawnColor_, samples, GL_SRGB8_ALPHA8, width_, height_);
  Reserve(depth_, samples, GL_DEPTH_COMPONENT24, width_, height_);
  Attach(drawn_, GL_COLOR_ATTACHMENT0, drawnColor_);
  Attach(drawn_, GL_DEPTH_ATTACHMENT, depth_);
  samples_ = samples;
  return IsComplete(drawn_);
}

void RenderTarget::Allocate(std::int32_t width, std::int32_t height) {
  GLint largest = 0;
  GLint most = 0;
  glGetIntegerv(GL_MAX_RENDERBUFFER_SIZE, &largest);
  glGetIntegerv(GL_MAX_SAMPLES, &most);
  if (width > largest || height > largest) throw std::runtime_error("the picture is larger than the driver can draw");
  width_ = width;
  height_ = height;
  Reserve(resolvedColor_, 0, GL_SRGB8_ALPHA8, width_, height_);
  Attach(resolved_, GL_COLOR_ATTACHMENT0, resolvedColor_);
  if (!IsComplete(resolved_)) throw std::runtime_error("the driver cannot draw to a picture in memory");
  int samples = std::clamp(wanted_, 0, static_cast<int>(most));
  while (!TryAllocate(samples)) {
    if (samples == 0) throw std::runtime_error("the driver cannot draw to a picture with depth");
    samples /= 2;
  }
}

void RenderTarget::Begin(std::int32_t width, std::int32_t height) {
  if (width != width_ || height != height_) Allocate(width, height);
  glBindFramebuffer(GL_FRAMEBUFFER, drawn_.Get());
  glViewport(0, 0, width_, height_);
}

void RenderTarget::Resolve() {
  glBindFramebuffer(GL_READ_FRAMEBUFFER, drawn_.Get());
  glBindFramebuffer(GL_DRAW_FRAMEBUFFER, resolved_.Get());
  glBlitFramebuffer(0, 0, width_, height_, 0, 0, width_, height_, GL_COLOR_BUFFER_BIT, GL_NEAREST);
}

void RenderTarget::CopyToWindow() const {
  // The bytes are encoded already; they go over as they are.
  glDisable(GL_FRAMEBUFFER_SRGB);
  glBindFramebuffer(GL_READ_FRAMEBUFFER, resolved_.Get());
  glBindFramebuffer(GL_DRAW_FRAMEBUFFER, 0);
  glBlitFramebuffer(0, 0, width_, height_, 0, 0, width_, height_, GL_COLOR_BUFFER_BIT, GL_NEAREST);
}

void RenderTarget::Read(base::Image& image) const {
  const auto rowBytes = static_cast<std::size_t>(width_) * 4;
  image.width = width_;
  image.height = height_;
  image.rgba.resize(rowBytes * static_cast<std::size_t>(height_));
  glBindFramebuffer(GL_READ_FRAMEBUFFER, resolved_.Get());
  glReadPixels(0, 0, width_, height_, GL_RGBA, GL_UNSIGNED_BYTE, image.rgba.data());
  std::uint8_t* top = image.rgba.data();
  for (std::uint8_t* bottom = top + image.rgba.size(); top + rowBytes < bottom; top += rowBytes) {
    bottom -= rowBytes;
    std::swap_ranges(top, top + rowBytes, bottom);
  }
}

}  // namespace qen::host
