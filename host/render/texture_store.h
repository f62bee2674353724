// The textures of the renderer.
#pragma once

#include <array>
#include <cstdint>
#include <span>

#include "base/backends/image.h"
#include "host/render/gl_objects.h"
#include "host/render/glyph_pages.h"
#include "host/render/handle_table.h"

namespace qen::host {

class TextureStore final : public IGlyphPages {
 public:
  TextureStore();

  // With mipmaps. 0 when the image is empty, ill-sized or larger than the driver takes.
  std::uint32_t Create(const base::Image& image);
  void Destroy(std::uint32_t texture) { textures_.Remove(texture); }

  std::uint32_t CreatePage(std::int32_t width, std::int32_t height) override;
  void UpdatePage(std::uint32_t page, std::int32_t x, std::int32_t y, std::int32_t width, std::int32_t height,
                  std::span<const std::uint8_t> texels) override;

  // Grows whenever what a name stands for changes.
  [[nodiscard]] std::uint64_t Changes() const { return textures_.Changes() + updates_; }

  // Repeat and Clamp tell what is beyond the edges of pictures, Page is for pages of glyphs: no more than the four
  // nearest texels count, however small the glyph.
  enum class Filter : std::uint8_t { Repeat, Clamp, Page };

  // Puts a texture into a unit; plain white stands for 0 and for what is unknown.
  void Bind(std::uint32_t texture, GLuint unit, Filter filter) const;

 private:
  [[nodiscard]] const GlSampler& SamplerOf(Filter filter) const { return samplers_[static_cast<std::size_t>(filter)]; }
  [[nodiscard]] bool Fits(std::int32_t width, std::int32_t height) const;

  HandleTable<GlTexture> textures_;
  GlTexture white_;
  std::array<GlSampler, 3> samplers_;  // one a filter
  GLint largest_ = 0;
  std::uint64_t updates_ = 0;  // of pages
};

}  // namespace qen::host
