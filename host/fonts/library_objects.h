// Owners of FreeType's, fontconfig's and raqm's objects.
#pragma once

#include <fontconfig/fontconfig.h>
#include <ft2build.h>
#include FT_FREETYPE_H
#include <raqm.h>

#include <memory>

namespace qen::host {

template <auto Release>
struct ReleaseWith {
  template <class T>
  void operator()(T* object) const {
    Release(object);
  }
};

using FtLibrary = std::unique_ptr<FT_LibraryRec_, ReleaseWith<&FT_Done_FreeType>>;
using FtFace = std::unique_ptr<FT_FaceRec_, ReleaseWith<&FT_Done_Face>>;
using FcConfigOwner = std::unique_ptr<FcConfig, ReleaseWith<&FcConfigDestroy>>;
using FcPatternOwner = std::unique_ptr<FcPattern, ReleaseWith<&FcPatternDestroy>>;
using FcFontSetOwner = std::unique_ptr<FcFontSet, ReleaseWith<&FcFontSetSortDestroy>>;
using FcCharSetOwner = std::unique_ptr<FcCharSet, ReleaseWith<&FcCharSetDestroy>>;
using RaqmOwner = std::unique_ptr<raqm_t, ReleaseWith<&raqm_destroy>>;

}  // namespace qen::host
