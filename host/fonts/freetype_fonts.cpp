#include "host/fonts/freetype_fonts.h"

#include "host/fonts/freetype_face.h"

namespace qen::host {

std::unique_ptr<base::IFontFace> FreetypeFonts::CreateFace(const base::FontRequest& request) {
  FaceChain chain(catalog_.Find(request), files_);
  if (chain.IsEmpty()) return nullptr;
  return std::make_unique<FreetypeFace>(request, std::move(chain), glyphs_);
}

}  // namespace qen::host
