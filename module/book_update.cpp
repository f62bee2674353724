// The frame: update, drawing and the tooltip.
#include <cmath>

#include "commands/message_collector.h"
#include "definitions/language_table.h"
#include "engine/drawing.h"
#include "engine/font.h"
#include "engine/ime.h"
#include "engine/system.h"
#include "engine/timer.h"
#include "engine/viewport.h"
#include "module/book_busy.h"
#include "pages/page_base.h"
#include "widgets/caret.h"
#include "widgets/numbers.h"

namespace qen {
namespace {

constexpr double kTooltipDelay = 1.0;  // seconds without a move
constexpr std::size_t kShortestTooltip = 2;

std::int32_t TruncateToInt(double value) { return Truncate<std::int32_t>(value); }

}  // namespace

bool CGUIBook::Update(std::uint32_t mouseState, Char key, std::uint32_t secondState) {
  const Busy busy(*this);
  if (System::ime != nullptr) System::ime->Enable(false);
  tooltip_.clear();
  if (viewport_ == nullptr) return false;
  MessageCollector().Purge();
  for (std::size_t i = 0; i < activePages_.size(); ++i) {
    PageBase* page = PageAt(activePages_[i]);
    if (page == nullptr) continue;
    page->Pick(viewport_, static_cast<std::uint32_t>(cursor_.x), static_cast<std::uint32_t>(cursor_.y), mouseState,
               secondState, key);
  }
  hoverTime_ = cursor_ == previousCursor_ ? hoverTime_ + frameTime_ : 0.0;
  previousCursor_ = cursor_;
  const double now = System::timer != nullptr ? System::timer->GetTime() : lastTime_;
  frameTime_ = now - lastTime_;
  lastTime_ = now;
  caretPhase = std::fmod(frameTime_ + caretPhase, 1.0);
  return true;
}

bool CGUIBook::Render(Viewport* viewport) {
  if (viewport == nullptr) return false;
  const Busy busy(*this);
  for (std::size_t i = 0; i < renderPages_.size(); ++i) {
    if (PageBase* page = PageAt(renderPages_[i])) page->Render(viewport);
  }
  return true;
}

void CGUIBook::SetTooltip(std::int32_t textId) {
  if (textId < 0) {
    tooltip_.clear();
  } else {
    tooltip_ = ModuleLanguageTable().Words(textId);
  }
}

void CGUIBook::DrawTooltip(Viewport* viewport) {
  Font* font = style_.GetFont();
  if (viewport == nullptr || font == nullptr || !style_.IsNamed()) return;
  if (hoverTime_ < kTooltipDelay || tooltip_.size() < kShortestTooltip) return;

  const auto width = static_cast<double>(viewport->GetActualWidth());
  Drawing drawing;
  drawing.BeginText2D();
  drawing.SetFont(font);
  const Rect text = drawing.GetTextRect({}, DT_SINGLELINE, u"%s", tooltip_.c_str());
  const Rect margin = drawing.GetTextRect({}, DT_SINGLELINE, u"W");
  const auto textWidth = static_cast<std::int16_t>(text.right - text.left);
  const auto marginWidth = static_cast<std::int16_t>(margin.right - margin.left);
  // The text starts at the cursor at the left edge of the viewport, and ends there at the right edge.
  const std::int32_t shift = width > 0.0 ? TruncateToInt(cursor_.x / width * text.right) : 0;
  TextMetric metric;
  font->GetTextMetric(metric);
  drawing.EndText();

  const std::int32_t left = cursor_.x - shift;
  const std::int32_t top = cursor_.y - metric.tmHeight;
  drawing.BeginQuads2D(style_.GetMaterial(), style_.GetMaterialParams());
  drawing.DrawQuad2D(TruncateToInt(left - 0.5 * marginWidth), top, TruncateToInt(left + textWidth + 0.5 * marginWidth),
                     cursor_.y, Color(0xFFFFFFFF));
  drawing.EndQuads();

  drawing.BeginText2D();
  drawing.DrawText2D(left, top, Color(Color::ABGRToARGB(style_.Settings().color | 0xFF000000U)), u"%s",
                     tooltip_.c_str());
  drawing.EndText();
}

}  // namespace qen
