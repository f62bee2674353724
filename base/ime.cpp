#include "base/ime.h"

#include <algorithm>

#include "base/backends/ime_backend.h"
#include "base/context.h"
#include "base/record.h"
#include "engine/drawing.h"

namespace qen::base {
namespace {

constexpr std::int32_t kFontHeight = -20;  // pixels, as all of these
constexpr std::int32_t kMargin = 16;       // to the edges of the window
constexpr std::int32_t kPadding = 4;       // around the text
constexpr Color kPlate(0xE0101820);
constexpr Color kText(0xFFFFFFFF);

}  // namespace

void ImeService::Enable(bool enabled) {
  Record("IIMEQUENRIN::Enable", enabled);
  wanted_ = enabled;
}

void ImeService::Draw() {
  Record("IIMEQUENRIN::Draw");
  const String text = engine_.backends.ime == nullptr ? String() : engine_.backends.ime->Composition();
  if (text.empty()) return;
  const RecordPause pause;
  if (font_ == nullptr) font_ = engine_.fonts.CreateEx(u"sans-serif", kFontHeight, 0, 400, false, 1, kDefaultGroup);
  if (font_ == nullptr) return;

  Drawing drawing;
  drawing.BeginText2D();
  drawing.SetFont(font_);
  const Rect measured = drawing.GetTextRect({}, DT_SINGLELINE, u"%s", text.c_str());
  drawing.EndText();

  const Point size{measured.right + 2 * kPadding, measured.bottom + 2 * kPadding};
  const Point place = Place(size);
  drawing.BeginQuads2D(nullptr, plate_);
  drawing.DrawQuad2D(place.x, place.y, place.x + size.x, place.y + size.y, kPlate);
  drawing.EndQuads();
  drawing.BeginText2D();
  drawing.DrawText2D(place.x + kPadding, place.y + kPadding, kText, u"%s", text.c_str());
  drawing.EndText();
}

// The upper left corner of the plate: under the field, or over it where there is no room; without a field at the lower
// left of the window.
Point ImeService::Place(Point size) const {
  const Point client = engine_.backends.window == nullptr ? Point{} : engine_.backends.window->ClientSize();
  const Rect field = engine_.backends.ime->Field();
  if (field == Rect{}) return {kMargin, client.y - kMargin - size.y};
  const bool fits = field.bottom + size.y <= client.y;
  return {std::max(std::min<std::int32_t>(field.left, client.x - size.x), 0),
          fits ? field.bottom : std::max(field.top - size.y, 0)};
}

void ImeService::Settle() {
  if (wanted_ == settled_) return;
  settled_ = wanted_;
  if (engine_.backends.ime != nullptr) engine_.backends.ime->Enable(settled_);
}

}  // namespace qen::base
