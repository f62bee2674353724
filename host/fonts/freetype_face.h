// A font of one size.
#pragma once

#include <fribidi.h>

#include <cstdint>
#include <span>
#include <vector>

#include "base/backends/font_backend.h"
#include "host/fonts/face_chain.h"
#include "host/fonts/glyph_cache.h"
#include "host/fonts/text_units.h"

namespace qen::host {

class FreetypeFace final : public base::IFontFace {
 public:
  // `chain` is not empty; `glyphs` must outlive the face.
  FreetypeFace(const base::FontRequest& request, FaceChain chain, GlyphCache& glyphs);

  [[nodiscard]] TextMetric Metric() const override { return metric_; }
  [[nodiscard]] String Substitute() const override;
  [[nodiscard]] bool Has(char32_t c) override { return chain_.Has(c); }
  void Shape(StringView text, base::GlyphStyle style, base::ShapedLine& line) override;
  void Measure(StringView text, std::vector<float>& ends) override;

 private:
  // Shapes into glyphs in visual order, which stay until the owner goes. Null for an empty text.
  [[nodiscard]] RaqmOwner Layout(StringView text);
  [[nodiscard]] float AdvanceOf(const raqm_glyph_t& glyph) const;
  [[nodiscard]] bool IsRightToLeft();  // what was laid out last

  FaceChain chain_;
  GlyphCache& glyphs_;
  EmSize em_;
  TextMetric metric_;
  Characters characters_;
  std::vector<std::uint32_t> faces_;  // of the characters
  std::vector<FriBidiCharType> bidiTypes_;
};

}  // namespace qen::host
