// Textures that glyphs are collected in.
#pragma once

#include <cstdint>
#include <span>

namespace qen::host {

// How far a distance-field page reaches from an outline, in texels: 0 there is this far outside, 255 this far inside.
inline constexpr int kDistanceFieldReach = 6;

class IGlyphPages {
 public:
  virtual ~IGlyphPages() = default;

  // An empty page with one byte a texel, read as the alpha of a white texture. 0 on failure.
  virtual std::uint32_t CreatePage(std::int32_t width, std::int32_t height) = 0;

  // Replaces a rectangle, rows from the top without gaps.
  virtual void UpdatePage(std::uint32_t page, std::int32_t x, std::int32_t y, std::int32_t width, std::int32_t height,
                          std::span<const std::uint8_t> texels) = 0;
};

}  // namespace qen::host
