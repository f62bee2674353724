#include "base/ime.h"

#include "base/backends/ime_backend.h"
#include "base/backends/window_backend.h"
#include "base/context.h"
#include "base/record.h"
#include "engine/drawing.h"

namespace qen::base {

void ImeService::Enable(bool enabled) {
  Record("IIMEQUENRIN::Enable", enabled);
  wanted_ = enabled;
}

void ImeService::Draw() {
  Record("IIMEQUENRIN::Draw");
  const String text = engine_.backends.ime == nullptr ? String() : engine_.backends.ime->Composition();
  if (text.empty()) return;
  constexpr std::int32_t kFontHeight = -20;
  constexpr std::int32_t kMargin = 16;
  const RecordPause pause;
  if (font_ == nullptr) font_ = engine_.fonts.CreateEx(u"sans-serif", kFontHeight, 0, 400, false, 1, kDefaultGroup);
  if (font_ == nullptr) return;

  TextMetric metric;
  font_->GetTextMetric(metric);
  const std::int32_t bottom = engine_.backends.window == nullptr ? 0 : engine_.backends.window->ClientSize().y;
  Drawing drawing;
  drawing.BeginText2D();
  drawing.SetFont(font_);
  drawing.DrawText2D(kMargin, bottom - metric.tmHeight - kMargin, Color(0xFFFFFFFF), u"%s", text.c_str());
  drawing.EndText();
}

void ImeService::Settle() {
  if (wanted_ == settled_) return;
  settled_ = wanted_;
  if (engine_.backends.ime != nullptr) engine_.backends.ime->Enable(settled_);
}

}  // namespace qen::base
