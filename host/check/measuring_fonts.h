// The installed fonts, for measures alone: no picture is kept.
#pragma once

#include "host/fonts/freetype_fonts.h"

namespace qen::host {

class MeasuringFonts {
 public:
  [[nodiscard]] base::IFontBackend& Backend() { return fonts_; }

 private:
  class NoPages final : public IGlyphPages {
   public:
    std::uint32_t CreatePage(std::int32_t, std::int32_t) override { return 0; }
    void UpdatePage(std::uint32_t, std::int32_t, std::int32_t, std::int32_t, std::int32_t,
                    std::span<const std::uint8_t>) override {}
  };

  NoPages pages_;
  FreetypeFonts fonts_{pages_};
};

}  // namespace qen::host
