#include "analysis/fonts.h"

#include <algorithm>
#include <utility>

#include "base/fonts.h"
#include "base/text_layout.h"

namespace qen::analysis {

MeasuredFont::MeasuredFont(std::unique_ptr<base::IFontFace> face, std::size_t& measured)
    : face_(std::move(face)),
      lineHeight_(static_cast<float>(std::max(face_->Metric().tmHeight, 1))),
      tabWidth_(base::TabWidthOf(*face_)),
      measured_(measured) {}

TextSize MeasuredFont::Measure(StringView words, float wrapWidth) {
  const auto [known, isNew] = known_[wrapWidth].try_emplace(String(words));
  if (!isNew) return known->second;
  measured_ += words.size();
  const bool wraps = wrapWidth > 0.0F;
  const base::TextLayout layout =
      base::LayOut(*face_, tabWidth_, words,
                   {.singleLine = !wraps, .expandTabs = wraps, .wrapWidth = wrapWidth, .withGlyphs = false});
  return known->second = {layout.lines.size(), layout.width, layout.cutsWord};
}

bool Fonts::IsFull() const {
  constexpr std::size_t kMost = 500;
  return fonts_.size() >= kMost;
}

MeasuredFont* Fonts::Find(const base::FontRequest& request) {
  if (backend_ == nullptr) return nullptr;
  const Key key{request.face, request.height, request.width, request.weight, request.italic};
  if (const auto known = fonts_.find(key); known != fonts_.end()) return known->second.get();
  if (IsFull()) return nullptr;
  std::unique_ptr<base::IFontFace> face = backend_->CreateFace(request);
  auto& font = fonts_[key];
  if (face != nullptr) font = std::make_unique<MeasuredFont>(std::move(face), measured_);
  return font.get();
}

}  // namespace qen::analysis
