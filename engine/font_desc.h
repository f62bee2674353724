// A font as definition files describe it: the layout of the Windows LOGFONTW record.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

#include "engine/types.h"

namespace qen {

#if defined(_WIN32)
using LogFontLong = long;  // 32 bits there, and the type that the system's record has
#else
using LogFontLong = std::int32_t;
#endif

struct LOGFONTW {
  static constexpr std::size_t kFaceSize = 32;  // characters, the ending zero included

  LogFontLong lfHeight = 0;  // negative: pixels of the em square; positive: of the cell
  LogFontLong lfWidth = 0;
  LogFontLong lfEscapement = 0;
  LogFontLong lfOrientation = 0;
  LogFontLong lfWeight = 0;   // 400 normal, 700 bold
  std::uint8_t lfItalic = 0;  // 255 is italic, everything else upright
  std::uint8_t lfUnderline = 0;
  std::uint8_t lfStrikeOut = 0;
  std::uint8_t lfCharSet = 0;
  std::uint8_t lfOutPrecision = 0;
  std::uint8_t lfClipPrecision = 0;
  std::uint8_t lfQuality = 0;
  std::uint8_t lfPitchAndFamily = 0;
  Char lfFaceName[kFaceSize] = {};

  [[nodiscard]] bool IsItalic() const { return lfItalic == 255; }

  // Copies what fits and always ends with a zero.
  void SetFaceName(StringView face) {
    const std::size_t length = face.size() < kFaceSize ? face.size() : kFaceSize - 1;
    std::memset(lfFaceName, 0, sizeof lfFaceName);
    std::memcpy(lfFaceName, face.data(), length * sizeof(Char));
  }
};

static_assert(sizeof(LOGFONTW) == 92);

}  // namespace qen
