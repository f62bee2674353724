// Pictures of glyphs, made when first needed.
#pragma once

#include <cstdint>
#include <unordered_map>

#include "base/backends/font_backend.h"
#include "host/fonts/distance_field.h"
#include "host/fonts/face_file.h"
#include "host/fonts/glyph_atlas.h"

namespace qen::host {

// What a face lacks and is done to its outlines instead.
struct Synthesis {
  bool bold = false;
  bool oblique = false;
  friend bool operator==(const Synthesis&, const Synthesis&) = default;
};

// How much wider a glyph becomes that is made bold, as a share of the em square.
inline constexpr float kBoldWidening = 1.0F / 24.0F;

class GlyphCache {
 public:
  explicit GlyphCache(IGlyphPages& pages) : coverage_(pages), distances_(pages) {}

  // A glyph by its number in the face, with positions relative to a pen at (`penX`, 0). Bitmaps are made for the size
  // and for quarters of a pixel, and lie on whole pixels; distance fields are made once for all sizes.
  base::Glyph Bitmap(FaceFile& face, std::uint32_t index, Synthesis synthesis, EmSize em, float penX);
  base::Glyph Field(FaceFile& face, std::uint32_t index, Synthesis synthesis, EmSize em, float penX);

 private:
  struct Key {
    std::uint32_t face = 0;
    std::uint32_t index = 0;
    float emX = 0.0F;  // 0: a distance field
    float emY = 0.0F;
    std::uint8_t phase = 0;
    Synthesis synthesis;
    friend bool operator==(const Key&, const Key&) = default;
  };
  struct Hash {
    std::size_t operator()(const Key& key) const;
  };
  struct Entry {
    AtlasPlace place;
    std::int32_t left = 0, top = 0, width = 0, height = 0;  // as in GlyphPicture
  };

  const Entry& FindBitmap(FaceFile& face, const Key& key);
  const Entry& FindField(FaceFile& face, const Key& key);
  static Entry Keep(const GlyphPicture& picture, GlyphAtlas& atlas);

  GlyphAtlas coverage_;
  GlyphAtlas distances_;
  std::unordered_map<Key, Entry, Hash> entries_;
  DistanceField field_;
  GlyphPicture drawn_;
  GlyphPicture made_;
};

}  // namespace qen::host
