// The renderer: OpenGL 3.3 core, linear lighting and blending, many samples a pixel.
#pragma once

#include <memory>
#include <span>

#include "base/backends/render_backend.h"
#include "host/render/gl_log.h"
#include "host/render/glyph_pages.h"

namespace qen::host {

struct GlRendererOptions {
  int samples = 4;              // a pixel; fewer where the driver cannot, 0 for none
  bool coarseInMotion = false;  // no samples until the picture stays for a moment: where the processor draws
  bool toWindow = true;         // frames are copied to the context's window, which has their size
  ErrorSink onError;            // empty: standard error
};

// Lives and dies, and is called, while one OpenGL context is current. Throws std::runtime_error where that context
// cannot do the work.
//
// A mesh without any light is shown in its own colours. Meshes repeat their pictures, quads end theirs.
class GlRenderer final : public base::IRenderBackend {
 public:
  explicit GlRenderer(const GlRendererOptions& options);
  ~GlRenderer() override;

  std::uint32_t CreateTexture(const base::Image& image) override;
  void DestroyTexture(std::uint32_t texture) override;
  std::uint32_t CreateGeometry(std::span<const base::Vertex> vertices, std::span<const std::uint32_t> indices) override;
  void DestroyGeometry(std::uint32_t geometry) override;

  // Leaves the picture where Read finds it and, as asked for, in the back buffer of the window. A size of 0 draws
  // nothing; nor is anything drawn when the picture would be the one that is there.
  void Draw(const base::DrawList& list, std::int32_t width, std::int32_t height) override;

  [[nodiscard]] bool HasChanged() const;          // whether the last Draw gave another picture than the one before
  [[nodiscard]] std::uint32_t DrawCalls() const;  // that the last picture took

  void ShowAgain() const;  // puts the last frame into the back buffer of the window

  void Read(base::Image& image) const;  // the last frame
  [[nodiscard]] IGlyphPages& GlyphPages();

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace qen::host
