// Fonts of fixed pitch that need no font files.
#pragma once

#include <cstdint>
#include <memory>
#include <set>

#include "base/backends/font_backend.h"

namespace qen::base {

inline constexpr std::uint32_t kBitmapTexture = 9001;  // of all glyphs of that style
inline constexpr std::uint32_t kDistanceFieldTexture = 9002;

// A font of height h (either sign, 0 is 16) has cells of |h| pixels, four fifths of them above the base line; each
// character is |h| / 2 wide and fills its cell. Combining marks (U+0300 to U+036F) and the second half of a surrogate
// pair belong to the cluster before them and take no room. Blanks have no picture; characters for private
// use (U+E000 to U+F8FF) are missing.
class QEN_API FakeFonts final : public IFontBackend {
 public:
  std::unique_ptr<IFontFace> CreateFace(const FontRequest& request) override;

  std::set<String> missing;     // faces that cannot be made
  std::int32_t faceCount = 0;   // that exist
  std::int32_t shapeCount = 0;  // lines shaped so far
};

}  // namespace qen::base
