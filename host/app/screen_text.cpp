#include "host/app/screen_text.h"

#include <algorithm>

#include "engine/drawing.h"
#include "engine/font.h"

namespace qen::host {
namespace {

constexpr std::int32_t kMargin = 8;  // pixels
constexpr std::int32_t kPadding = 6;
constexpr Color kPlate(0xD0101820);
constexpr Color kText(0xFFFFFFFF);

}  // namespace

ScreenText::ScreenText()
    : font_(FontManager::GetSingleton()->CreateEx(u"sans-serif", -16, 0, 400, false, 1, kDefaultGroup)) {}

ScreenText::~ScreenText() {
  if (font_ != nullptr) FontManager::GetSingleton()->Destroy(font_);
}

void ScreenText::Draw(std::span<const String> lines, std::int32_t top) {
  if (font_ == nullptr || lines.empty()) return;
  TextMetric metric;
  font_->GetTextMetric(metric);
  Drawing drawing;
  drawing.BeginText2D();
  drawing.SetFont(font_);
  std::int32_t width = 0;
  for (const String& line : lines) {
    width = std::max<std::int32_t>(width, drawing.GetTextRect({}, DT_SINGLELINE, u"%s", line.c_str()).right);
  }
  drawing.EndText();

  const std::int32_t bottom = top + 2 * kPadding + metric.tmHeight * static_cast<std::int32_t>(lines.size());
  drawing.BeginQuads2D(nullptr, plate_);
  drawing.DrawQuad2D(kMargin, top, kMargin + width + 2 * kPadding, bottom, kPlate);
  drawing.EndQuads();
  drawing.BeginText2D();
  std::int32_t y = top + kPadding;
  for (const String& line : lines) {
    drawing.DrawText2D(kMargin + kPadding, y, kText, u"%s", line.c_str());
    y += metric.tmHeight;
  }
  drawing.EndText();
}

}  // namespace qen::host
