// Reads style files.
#pragma once

#include <cstdint>

#include "engine/font_desc.h"
#include "engine/types.h"

namespace qen {

// What the overlay is drawn with.
struct StyleSettings {
  String texture;           // file name
  std::uint32_t color = 0;  // 0xAABBGGRR
  LOGFONTW font;
};

// Stores what the text sets; the rest stays.
void ReadStyle(const String& text, StyleSettings& style);

// The font of a style whose file sets none.
LOGFONTW DefaultStyleFont();

}  // namespace qen
