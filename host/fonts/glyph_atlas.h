// Collects pictures of glyphs in pages.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "host/render/glyph_pages.h"

namespace qen::host {

// A picture's place; the texture is 0 when there is none.
struct AtlasPlace {
  std::uint32_t texture = 0;
  float u0 = 0.0F, v0 = 0.0F, u1 = 0.0F, v1 = 0.0F;
};

// Fills pages shelf by shelf and takes a new page when one is full: what is in a page stays there for good.
class GlyphAtlas {
 public:
  explicit GlyphAtlas(IGlyphPages& pages) : pages_(pages) {}

  // Nothing is drawn for a picture that is empty or that the driver has no texture for.
  AtlasPlace Add(std::int32_t width, std::int32_t height, std::span<const std::uint8_t> texels);

 private:
  struct Page {
    std::uint32_t texture = 0;
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::int32_t used = 0;  // height
  };

  // Pictures of nearly the same height beside each other.
  struct Shelf {
    std::size_t page = 0;
    std::int32_t top = 0;
    std::int32_t height = 0;
    std::int32_t used = 0;  // width
  };

  [[nodiscard]] Shelf* FindShelf(std::int32_t width, std::int32_t height);
  bool StartPage(std::int32_t width, std::int32_t height);

  IGlyphPages& pages_;
  std::vector<Page> started_;   // new shelves are put into the last one
  std::vector<Shelf> shelves_;  // of all pages
};

}  // namespace qen::host
