#include "host/fonts/freetype_face.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "base/utf.h"

namespace qen::host {
namespace {

constexpr float kPixelsAUnit = 1.0F / 64.0F;  // a unit of FreeType's positions

std::int32_t Rounded(float pixels) { return static_cast<std::int32_t>(std::lround(pixels)); }

// Pixels of the em square, as far as anybody can use.
float EmHeight(const base::FontRequest& request, const FaceFile& face) {
  constexpr float kDefault = 16.0F;
  constexpr float kLargest = 2048.0F;
  if (request.height == 0) return kDefault;
  float em = std::abs(static_cast<float>(request.height));
  if (request.height > 0) em /= std::max(face.Ascent() + face.Descent(), 0.1F);
  return std::clamp(em, 1.0F, kLargest);
}

float WidthFactor(const base::FontRequest& request, const FaceFile& face, float em) {
  if (request.width == 0) return 1.0F;
  const float average = face.AverageWidth() * em;
  return std::clamp(std::abs(static_cast<float>(request.width)) / average, 0.1F, 10.0F);
}

TextMetric MetricOf(const base::FontRequest& request, const FaceFile& face, float em) {
  TextMetric metric;
  metric.tmAscent = Rounded(face.Ascent() * em);
  metric.tmDescent = Rounded(face.Descent() * em);
  // Rounding both apart may miss the cell that was asked for.
  const bool cell = request.height > 0 && std::abs(metric.tmAscent + metric.tmDescent - request.height) <= 1;
  if (cell) metric.tmDescent = request.height - metric.tmAscent;
  metric.tmHeight = metric.tmAscent + metric.tmDescent;
  return metric;
}

std::span<const raqm_glyph_t> GlyphsOf(raqm_t* layout) {
  std::size_t count = 0;
  const raqm_glyph_t* glyphs = raqm_get_glyphs(layout, &count);
  return {glyphs, glyphs == nullptr ? 0 : count};
}

}  // namespace

FreetypeFace::FreetypeFace(const base::FontRequest& request, FaceChain chain, GlyphCache& glyphs)
    : chain_(std::move(chain)), glyphs_(glyphs) {
  const FaceFile& first = chain_.File(0);
  em_.y = EmHeight(request, first);
  em_.x = em_.y * WidthFactor(request, first, em_.y);
  metric_ = MetricOf(request, first, em_.y);
}

RaqmOwner FreetypeFace::Layout(StringView text) {
  characters_.Read(text);
  const std::vector<std::uint32_t>& codes = characters_.codes;
  if (codes.empty()) return nullptr;
  chain_.Assign(codes, faces_);
  RaqmOwner layout(raqm_create());
  if (layout == nullptr || !raqm_set_text(layout.get(), codes.data(), codes.size())) return nullptr;
  // Widths do not depend on the style, so that a text wraps alike in all of them.
  raqm_set_freetype_load_flags(layout.get(), FT_LOAD_NO_HINTING | FT_LOAD_NO_BITMAP);
  raqm_set_par_direction(layout.get(), RAQM_DIRECTION_DEFAULT);
  for (std::size_t i = 0; i < codes.size();) {
    std::size_t end = i + 1;
    while (end < codes.size() && faces_[end] == faces_[i]) ++end;
    FaceFile& file = chain_.File(faces_[i]);
    file.SetSize(em_);
    raqm_set_freetype_face_range(layout.get(), file.Get(), i, end - i);
    i = end;
  }
  return raqm_layout(layout.get()) ? std::move(layout) : nullptr;
}

float FreetypeFace::AdvanceOf(const raqm_glyph_t& glyph) const {
  const float advance = static_cast<float>(glyph.x_advance) * kPixelsAUnit;
  const bool widened = glyph.x_advance != 0 && chain_.SynthesisOf(faces_[glyph.cluster]).bold;
  return widened ? advance + kBoldWidening * em_.x : advance;
}

bool FreetypeFace::IsRightToLeft() {
  const std::vector<std::uint32_t>& codes = characters_.codes;
  bidiTypes_.resize(codes.size());
  const auto count = static_cast<FriBidiStrIndex>(codes.size());
  fribidi_get_bidi_types(codes.data(), count, bidiTypes_.data());
  return fribidi_get_par_direction(bidiTypes_.data(), count) == FRIBIDI_PAR_RTL;
}

String FreetypeFace::Substitute() const { return base::ToUtf16(chain_.First().substitute); }

void FreetypeFace::Shape(StringView text, base::GlyphStyle style, base::ShapedLine& line) {
  line.glyphs.clear();
  line.width = 0.0F;
  const RaqmOwner layout = Layout(text);
  line.rightToLeft = layout != nullptr && IsRightToLeft();
  if (layout == nullptr) return;
  for (const raqm_glyph_t& shaped : GlyphsOf(layout.get())) {
    const std::uint32_t face = faces_[shaped.cluster];
    FaceFile& file = chain_.File(face);
    const float x = line.width + static_cast<float>(shaped.x_offset) * kPixelsAUnit;
    float y = static_cast<float>(shaped.y_offset) * kPixelsAUnit;
    const bool bitmap = style == base::GlyphStyle::Bitmap;
    if (bitmap) y = std::round(y);
    base::Glyph glyph = bitmap ? glyphs_.Bitmap(file, shaped.index, chain_.SynthesisOf(face), em_, x)
                               : glyphs_.Field(file, shaped.index, chain_.SynthesisOf(face), em_, x);
    glyph.top -= y;
    glyph.bottom -= y;
    line.glyphs.push_back(glyph);
    line.width += AdvanceOf(shaped);
  }
}

void FreetypeFace::Measure(StringView text, std::vector<float>& ends) {
  ends.assign(text.size(), 0.0F);
  const RaqmOwner layout = Layout(text);
  if (layout == nullptr) return;
  // A cluster is known by its first character: that gets all of its width, and the rest of the cluster adds nothing.
  std::vector<float> widths(characters_.codes.size(), 0.0F);
  for (const raqm_glyph_t& shaped : GlyphsOf(layout.get())) widths[shaped.cluster] += AdvanceOf(shaped);
  float end = 0.0F;
  std::size_t known = 0;  // characters summed up
  for (std::size_t unit = 0; unit < ends.size(); ++unit) {
    for (; known <= characters_.ofUnit[unit]; ++known) end += widths[known];
    ends[unit] = end;
  }
}

}  // namespace qen::host
