#include "host/app/screen_text.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "engine/drawing.h"
#include "engine/font.h"
#include "engine/string_converter.h"

namespace qen::host {
namespace {

constexpr std::int32_t kMargin = 8;  // pixels
constexpr std::int32_t kPadding = 6;
constexpr Color kPlate(0xD0101820);
constexpr Color kText(0xFFFFFFFF);

std::int32_t WidthOf(Drawing& drawing, const String& line) {
  return drawing.GetTextRect({}, DT_SINGLELINE, u"%s", line.c_str()).right;
}

// Cut at blanks into lines that are no wider, where words allow it; what follows a cut is indented.
std::vector<String> Wrapped(Drawing& drawing, std::span<const String> lines, std::int32_t width) {
  constexpr StringView kIndent = u"    ";
  std::vector<String> wrapped;
  for (const String& line : lines) {
    String shown;
    for (const String& word : SplitString(line, u" ", 0)) {
      const String longer = shown.empty() ? word : shown + u' ' + word;
      if (shown.empty() || WidthOf(drawing, longer) <= width) {
        shown = longer;
        continue;
      }
      wrapped.push_back(std::move(shown));
      shown = String(kIndent) + word;
    }
    wrapped.push_back(std::move(shown));
  }
  return wrapped;
}

}  // namespace

ScreenText::ScreenText()
    : font_(FontManager::GetSingleton()->CreateEx(u"sans-serif", -16, 0, 400, false, 1, kDefaultGroup)) {}

ScreenText::~ScreenText() {
  if (font_ != nullptr) FontManager::GetSingleton()->Destroy(font_);
}

void ScreenText::Draw(std::span<const String> text, std::int32_t top, std::int32_t screenWidth) {
  if (font_ == nullptr || text.empty()) return;
  TextMetric metric;
  font_->GetTextMetric(metric);
  Drawing drawing;
  drawing.BeginText2D();
  drawing.SetFont(font_);
  const std::vector<String> lines = Wrapped(drawing, text, screenWidth - 2 * (kMargin + kPadding));
  std::int32_t width = 0;
  for (const String& line : lines) width = std::max(width, WidthOf(drawing, line));
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
