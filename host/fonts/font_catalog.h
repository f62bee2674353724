// The installed faces, through fontconfig.
#pragma once

#include <string>
#include <vector>

#include "base/backends/font_backend.h"
#include "host/fonts/library_objects.h"

namespace qen::host {

// A face that can stand in for a request.
struct CatalogFace {
  std::string file;
  int index = 0;              // in the file, as FreeType takes it
  std::string substitute;     // the family in UTF-8, when it is not the one asked for
  bool needsBold = false;     // the face is lighter than asked for
  bool needsOblique = false;  // the face is upright and italic was asked for
  FcCharSetOwner characters;

  [[nodiscard]] bool Has(char32_t character) const { return FcCharSetHasChar(characters.get(), character) != 0; }
};

class FontCatalog {
 public:
  FontCatalog();  // throws std::runtime_error when fontconfig does not work

  // Adds the fonts of a folder to the installed ones; false when it cannot be read.
  bool AddFolder(const std::string& folder);

  // Faces for a request, the best first, each further one with characters that the ones before lack. Empty only when
  // there is no scalable face at all.
  [[nodiscard]] std::vector<CatalogFace> Find(const base::FontRequest& request) const;

 private:
  FcConfigOwner config_;
};

}  // namespace qen::host
