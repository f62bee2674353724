#include "host/fonts/face_file.h"

#include FT_TRUETYPE_TABLES_H

#include <cmath>
#include <stdexcept>

namespace qen::host {
namespace {

constexpr float kUnitsPerPixel = 64.0F;  // of FreeType's fixed-point positions

FT_F26Dot6 Fixed(float pixels) { return static_cast<FT_F26Dot6>(std::lround(pixels * kUnitsPerPixel)); }

}  // namespace

void FaceFile::SetSize(EmSize em) {
  // At 72 dots an inch a point is a pixel.
  constexpr FT_UInt kDots = 72;
  FT_Set_Char_Size(face_.get(), Fixed(em.x), Fixed(em.y), kDots, kDots);
}

float FaceFile::PerEm(long units) const { return static_cast<float>(units) / static_cast<float>(face_->units_per_EM); }

float FaceFile::Ascent() const { return PerEm(face_->ascender); }

float FaceFile::Descent() const { return PerEm(-face_->descender); }

float FaceFile::AverageWidth() const {
  const auto* table = static_cast<const TT_OS2*>(FT_Get_Sfnt_Table(face_.get(), FT_SFNT_OS2));
  if (table != nullptr && table->xAvgCharWidth > 0) return PerEm(table->xAvgCharWidth);
  constexpr float kUsual = 0.5F;
  if (FT_Load_Char(face_.get(), 'x', FT_LOAD_NO_SCALE) != 0) return kUsual;
  return face_->glyph->advance.x > 0 ? PerEm(face_->glyph->advance.x) : kUsual;
}

FaceLibrary::FaceLibrary() {
  FT_Library library = nullptr;
  if (FT_Init_FreeType(&library) != 0) throw std::runtime_error("FreeType cannot be started");
  library_.reset(library);
}

FaceFile* FaceLibrary::Open(const std::string& file, int index) {
  const auto [place, isNew] = files_.try_emplace({file, index});
  if (!isNew) return place->second.get();
  FT_Face opened = nullptr;
  if (FT_New_Face(library_.get(), file.c_str(), index, &opened) != 0) return nullptr;
  FtFace face(opened);
  if (!FT_IS_SCALABLE(opened)) return nullptr;
  place->second = std::make_unique<FaceFile>(std::move(face), static_cast<std::uint32_t>(files_.size()));
  return place->second.get();
}

}  // namespace qen::host
