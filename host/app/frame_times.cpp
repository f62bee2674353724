#include "host/app/frame_times.h"

#include <algorithm>
#include <numeric>
#include <span>

#include "engine/drawing.h"
#include "engine/font.h"

namespace qen::host {
namespace {

constexpr std::int32_t kMargin = 8;  // pixels
constexpr Color kText(0xFFFFFFFF);
constexpr Color kShadow(0xFF000000);

}  // namespace

FrameTimes::FrameTimes()
    : font_(FontManager::GetSingleton()->CreateEx(u"sans-serif", -16, 0, 400, false, 1, kDefaultGroup)) {}

FrameTimes::~FrameTimes() { FontManager::GetSingleton()->Destroy(font_); }

void FrameTimes::Draw() {
  const Clock::time_point now = Clock::now();
  milliseconds_[count_++ % kFrames] = std::chrono::duration<double, std::milli>(now - last_).count();
  last_ = now;
  const std::span<const double> known(milliseconds_.data(), std::min(count_, kFrames));
  const double average = std::accumulate(known.begin(), known.end(), 0.0) / static_cast<double>(known.size());
  const double worst = std::ranges::max(known);

  Drawing drawing;
  drawing.BeginText2D();
  drawing.SetFont(font_);
  const auto draw = [&](std::int32_t offset, Color color) {
    drawing.DrawText2D(kMargin + offset, kMargin + offset, color, u"%.1f ms a frame, at worst %.1f ms", average, worst);
  };
  draw(1, kShadow);
  draw(0, kText);
  drawing.EndText();
}

}  // namespace qen::host
