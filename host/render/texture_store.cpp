#include "host/render/texture_store.h"

#include <algorithm>
#include <array>
#include <vector>

#include "host/render/gl_driver.h"

namespace qen::host {
namespace {

void SetUp(const GlSampler& sampler, GLint wrap, GLint minify) {
  glSamplerParameteri(sampler.Get(), GL_TEXTURE_WRAP_S, wrap);
  glSamplerParameteri(sampler.Get(), GL_TEXTURE_WRAP_T, wrap);
  glSamplerParameteri(sampler.Get(), GL_TEXTURE_MIN_FILTER, minify);
  glSamplerParameteri(sampler.Get(), GL_TEXTURE_MAG_FILTER, GL_LINEAR);
}

// Keeps pictures sharp on surfaces that are seen from the side. Without a graphics card it is slow, and blurs what is
// seen from the front.
void SharpenTilted(const GlSampler& sampler) {
  if (!epoxy_has_gl_extension("GL_EXT_texture_filter_anisotropic") || IsSoftwareDriver()) return;
  GLfloat most = 1.0F;
  glGetFloatv(GL_MAX_TEXTURE_MAX_ANISOTROPY_EXT, &most);
  glSamplerParameterf(sampler.Get(), GL_TEXTURE_MAX_ANISOTROPY_EXT, std::min(most, 8.0F));
}

}  // namespace

TextureStore::TextureStore() {
  glGetIntegerv(GL_MAX_TEXTURE_SIZE, &largest_);
  SetUp(SamplerOf(Filter::Repeat), GL_REPEAT, GL_LINEAR_MIPMAP_LINEAR);
  SetUp(SamplerOf(Filter::Clamp), GL_CLAMP_TO_EDGE, GL_LINEAR_MIPMAP_LINEAR);
  SetUp(SamplerOf(Filter::Page), GL_CLAMP_TO_EDGE, GL_LINEAR);
  SharpenTilted(SamplerOf(Filter::Repeat));
  SharpenTilted(SamplerOf(Filter::Clamp));
  constexpr std::array<std::uint8_t, 4> kWhite{255, 255, 255, 255};
  glBindTexture(GL_TEXTURE_2D, white_.Get());
  glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA8, 1, 1, 0, GL_RGBA, GL_UNSIGNED_BYTE, kWhite.data());
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAX_LEVEL, 0);
}

bool TextureStore::Fits(std::int32_t width, std::int32_t height) const {
  return width > 0 && height > 0 && width <= largest_ && height <= largest_;
}

std::uint32_t TextureStore::Create(const base::Image& image) {
  if (!Fits(image.width, image.height)) return 0;
  if (image.rgba.size() != static_cast<std::size_t>(image.width) * static_cast<std::size_t>(image.height) * 4) return 0;
  GlTexture texture;
  glBindTexture(GL_TEXTURE_2D, texture.Get());
  glTexImage2D(GL_TEXTURE_2D, 0, image.isLinear ? GL_RGBA8 : GL_SRGB8_ALPHA8, image.width, image.height, 0, GL_RGBA,
               GL_UNSIGNED_BYTE, image.rgba.data());
  glGenerateMipmap(GL_TEXTURE_2D);
  return textures_.Add(std::move(texture));
}

std::uint32_t TextureStore::CreatePage(std::int32_t width, std::int32_t height) {
  if (!Fits(width, height)) return 0;
  const std::vector<std::uint8_t> empty(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
  GlTexture texture;
  glBindTexture(GL_TEXTURE_2D, texture.Get());
  glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
  glTexImage2D(GL_TEXTURE_2D, 0, GL_R8, width, height, 0, GL_RED, GL_UNSIGNED_BYTE, empty.data());
  glPixelStorei(GL_UNPACK_ALIGNMENT, 4);
  constexpr std::array<GLint, 4> kAsAlpha{GL_ONE, GL_ONE, GL_ONE, GL_RED};
  glTexParameteriv(GL_TEXTURE_2D, GL_TEXTURE_SWIZZLE_RGBA, kAsAlpha.data());
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAX_LEVEL, 0);
  return textures_.Add(std::move(texture));
}

void TextureStore::UpdatePage(std::uint32_t page, std::int32_t x, std::int32_t y, std::int32_t width,
                              std::int32_t height, std::span<const std::uint8_t> texels) {
  const GlTexture* texture = textures_.Find(page);
  if (texture == nullptr) return;
  ++updates_;
  glBindTexture(GL_TEXTURE_2D, texture->Get());
  glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
  glTexSubImage2D(GL_TEXTURE_2D, 0, x, y, width, height, GL_RED, GL_UNSIGNED_BYTE, texels.data());
  glPixelStorei(GL_UNPACK_ALIGNMENT, 4);
}

void TextureStore::Bind(std::uint32_t texture, GLuint unit, Filter filter) const {
  const GlTexture* found = textures_.Find(texture);
  glActiveTexture(GL_TEXTURE0 + unit);
  glBindTexture(GL_TEXTURE_2D, found == nullptr ? white_.Get() : found->Get());
  glBindSampler(unit, SamplerOf(filter).Get());
}

}  // namespace qen::host
