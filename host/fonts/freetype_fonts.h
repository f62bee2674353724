// The installed fonts: fontconfig finds them, FreeType draws them, raqm shapes texts.
#pragma once

#include <memory>
#include <string>

#include "base/backends/font_backend.h"
#include "host/fonts/face_file.h"
#include "host/fonts/font_catalog.h"
#include "host/fonts/glyph_cache.h"

namespace qen::host {

class FreetypeFonts final : public base::IFontBackend {
 public:
  // `pages` must outlive this, and this must outlive its faces. Throws std::runtime_error when the libraries do not
  // work.
  explicit FreetypeFonts(IGlyphPages& pages) : glyphs_(pages) {}

  // Adds the font files of a folder to the installed ones; false when it cannot be read.
  bool AddFolder(const std::string& folder) { return catalog_.AddFolder(folder); }

  std::unique_ptr<base::IFontFace> CreateFace(const base::FontRequest& request) override;

 private:
  FontCatalog catalog_;
  FaceLibrary files_;
  GlyphCache glyphs_;
};

}  // namespace qen::host
