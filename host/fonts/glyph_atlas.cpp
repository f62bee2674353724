#include "host/fonts/glyph_atlas.h"

#include <algorithm>

namespace qen::host {
namespace {

constexpr std::int32_t kPageSize = 1024;
constexpr std::int32_t kGap = 1;  // keeps neighbours out of each other's filtering

}  // namespace

AtlasPlace GlyphAtlas::Add(std::int32_t width, std::int32_t height, std::span<const std::uint8_t> texels) {
  if (width <= 0 || height <= 0) return {};
  const std::int32_t fullWidth = width + kGap;
  const std::int32_t fullHeight = height + kGap;
  Shelf* shelf = FindShelf(fullWidth, fullHeight);
  if (shelf == nullptr) {
    if (!StartPage(fullWidth, fullHeight)) return {};
    shelf = FindShelf(fullWidth, fullHeight);
  }
  const Page& page = started_[shelf->page];
  const std::int32_t x = shelf->used;
  const std::int32_t y = shelf->top;
  shelf->used += fullWidth;
  pages_.UpdatePage(page.texture, x, y, width, height, texels);
  const auto pageWidth = static_cast<float>(page.width);
  const auto pageHeight = static_cast<float>(page.height);
  return {page.texture, static_cast<float>(x) / pageWidth, static_cast<float>(y) / pageHeight,
          static_cast<float>(x + width) / pageWidth, static_cast<float>(y + height) / pageHeight};
}

// The shelf that wastes least, a new one when none is near in height. Null when the last page is full.
GlyphAtlas::Shelf* GlyphAtlas::FindShelf(std::int32_t width, std::int32_t height) {
  Shelf* best = nullptr;
  for (Shelf& shelf : shelves_) {
    const bool near = shelf.height >= height && shelf.height <= height + height / 8;
    if (!near || shelf.used + width > started_[shelf.page].width) continue;
    if (best == nullptr || shelf.height < best->height) best = &shelf;
  }
  if (best != nullptr || started_.empty()) return best;
  Page& page = started_.back();
  if (page.used + height > page.height || width > page.width) return nullptr;
  shelves_.push_back({started_.size() - 1, page.used, height, 0});
  page.used += height;
  return &shelves_.back();
}

bool GlyphAtlas::StartPage(std::int32_t width, std::int32_t height) {
  const std::int32_t pageWidth = std::max(kPageSize, width);
  const std::int32_t pageHeight = std::max(kPageSize, height);
  const std::uint32_t texture = pages_.CreatePage(pageWidth, pageHeight);
  if (texture != 0) started_.push_back({texture, pageWidth, pageHeight, 0});
  return texture != 0;
}

}  // namespace qen::host
