#include "host/fonts/glyph_cache.h"

#include FT_OUTLINE_H

#include <algorithm>
#include <cmath>

namespace qen::host {
namespace {

constexpr float kFieldEm = 64.0F;    // pixels of the em square in a distance field
constexpr int kPhases = 4;           // places of a bitmap's pen within a pixel
constexpr FT_Pos kUnitsAPixel = 64;  // FreeType's units a pixel

void Synthesise(FT_Outline& outline, Synthesis synthesis, EmSize em) {
  if (synthesis.bold) {
    const float units = kBoldWidening * static_cast<float>(kUnitsAPixel);
    FT_Outline_EmboldenXY(&outline, std::lround(em.x * units), std::lround(em.y * units));
  }
  if (!synthesis.oblique) return;
  constexpr FT_Fixed kOne = 0x10000;
  constexpr FT_Fixed kLean = kOne / 5;
  const FT_Matrix lean{kOne, kLean, 0, kOne};
  FT_Outline_Transform(&outline, &lean);
}

void CopyRows(const FT_Bitmap& bitmap, GlyphPicture& out) {
  out.width = static_cast<std::int32_t>(bitmap.width);
  out.height = static_cast<std::int32_t>(bitmap.rows);
  out.texels.resize(static_cast<std::size_t>(bitmap.width) * bitmap.rows);
  for (std::int32_t y = 0; y < out.height; ++y) {
    const std::uint8_t* row = bitmap.buffer + static_cast<std::ptrdiff_t>(y) * bitmap.pitch;
    std::copy_n(row, out.width, out.texels.begin() + static_cast<std::ptrdiff_t>(y) * out.width);
  }
}

// An empty picture for a glyph that cannot be drawn.
void Draw(FaceFile& face, std::uint32_t index, Synthesis synthesis, EmSize em, FT_Int32 flags, FT_Pos shift,
          GlyphPicture& out) {
  out.width = out.height = 0;
  face.SetSize(em);
  FT_GlyphSlot slot = face.Get()->glyph;
  if (FT_Load_Glyph(face.Get(), index, flags | FT_LOAD_NO_BITMAP) != 0) return;
  if (slot->format != FT_GLYPH_FORMAT_OUTLINE) return;
  Synthesise(slot->outline, synthesis, em);
  FT_Outline_Translate(&slot->outline, shift, 0);
  if (FT_Render_Glyph(slot, FT_RENDER_MODE_NORMAL) != 0) return;
  out.left = slot->bitmap_left;
  out.top = slot->bitmap_top;
  CopyRows(slot->bitmap, out);
}

}  // namespace

std::size_t GlyphCache::Hash::operator()(const Key& key) const {
  std::size_t hash = 0;
  const auto mix = [&hash](std::size_t value) { hash = (hash ^ value) * 0x9E3779B97F4A7C15U; };
  mix(key.face);
  mix(key.index);
  mix(std::hash<float>()(key.emX));
  mix(std::hash<float>()(key.emY));
  mix(key.phase * 4U + (key.synthesis.bold ? 2U : 0U) + (key.synthesis.oblique ? 1U : 0U));
  return hash ^ (hash >> 32);
}

GlyphCache::Entry GlyphCache::Keep(const GlyphPicture& picture, GlyphAtlas& atlas) {
  return {atlas.Add(picture.width, picture.height, picture.texels), picture.left, picture.top, picture.width,
          picture.height};
}

const GlyphCache::Entry& GlyphCache::FindBitmap(FaceFile& face, const Key& key) {
  const auto [place, isNew] = entries_.try_emplace(key);
  if (!isNew) return place->second;
  const FT_Pos shift = key.phase * kUnitsAPixel / kPhases;
  Draw(face, key.index, key.synthesis, {key.emX, key.emY}, FT_LOAD_TARGET_LIGHT, shift, drawn_);
  return place->second = Keep(drawn_, coverage_);
}

const GlyphCache::Entry& GlyphCache::FindField(FaceFile& face, const Key& key) {
  const auto [place, isNew] = entries_.try_emplace(key);
  if (!isNew) return place->second;
  constexpr float kEm = kFieldEm * DistanceField::kOversampling;
  Draw(face, key.index, key.synthesis, {kEm, kEm}, FT_LOAD_NO_HINTING, 0, drawn_);
  if (drawn_.width == 0 || drawn_.height == 0) return place->second;
  field_.Make(drawn_, kDistanceFieldReach, made_);
  return place->second = Keep(made_, distances_);
}

base::Glyph GlyphCache::Bitmap(FaceFile& face, std::uint32_t index, Synthesis synthesis, EmSize em, float penX) {
  const float quarters = std::round(penX * kPhases);
  const float whole = std::floor(quarters / kPhases);
  const auto phase = static_cast<std::uint8_t>(quarters - whole * kPhases);
  const Entry& entry = FindBitmap(face, {face.GetId(), index, em.x, em.y, phase, synthesis});
  const float left = whole + static_cast<float>(entry.left);
  const float top = -static_cast<float>(entry.top);
  const AtlasPlace& place = entry.place;
  return {left,
          top,
          left + static_cast<float>(entry.width),
          top + static_cast<float>(entry.height),
          place.u0,
          place.v0,
          place.u1,
          place.v1,
          place.texture};
}

base::Glyph GlyphCache::Field(FaceFile& face, std::uint32_t index, Synthesis synthesis, EmSize em, float penX) {
  const Entry& entry = FindField(face, {.face = face.GetId(), .index = index, .synthesis = synthesis});
  const float scaleX = em.x / kFieldEm;
  const float scaleY = em.y / kFieldEm;
  const float left = penX + static_cast<float>(entry.left) * scaleX;
  const float top = -static_cast<float>(entry.top) * scaleY;
  const AtlasPlace& place = entry.place;
  return {left,
          top,
          left + static_cast<float>(entry.width) * scaleX,
          top + static_cast<float>(entry.height) * scaleY,
          place.u0,
          place.v0,
          place.u1,
          place.v1,
          place.texture};
}

}  // namespace qen::host
