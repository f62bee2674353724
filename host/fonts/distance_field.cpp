#include "host/fonts/distance_field.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace qen::host {
namespace {

constexpr std::int32_t kNone = -100000;
constexpr float kFar = 100000.0F;

std::int32_t FloorHalf(std::int32_t value) { return value >> 1; }
std::int32_t CeilHalf(std::int32_t value) { return (value + 1) >> 1; }

static_assert(DistanceField::kOversampling == 2, "the halves above");

double Square(std::int32_t value) { return static_cast<double>(value) * value; }

// How far inside a straight outline the middle of a pixel lies, by the pixel's covered part and the outline's direction
// (the larger and the smaller part of its unit normal). The outline cuts off a corner of the pixel, or two sides of it.
float DepthOf(float covered, float larger, float smaller) {
  const float corner = 0.5F * smaller / larger;
  const float reach = 0.5F * (larger + smaller);
  if (covered < corner) return std::sqrt(2.0F * larger * smaller * covered) - reach;
  if (covered > 1.0F - corner) return reach - std::sqrt(2.0F * larger * smaller * (1.0F - covered));
  return (covered - 0.5F) * larger;
}

}  // namespace

std::size_t DistanceField::At(std::int32_t column, std::int32_t row) const {
  return static_cast<std::size_t>(row) * static_cast<std::size_t>(width_) + static_cast<std::size_t>(column);
}

void DistanceField::Make(const GlyphPicture& source, int reach, GlyphPicture& out) {
  out.left = FloorHalf(source.left) - reach;
  out.top = CeilHalf(source.top) + reach;
  out.width = CeilHalf(source.left + source.width) + reach - out.left;
  out.height = out.top - FloorHalf(source.top - source.height) + reach;
  out.texels.clear();

  width_ = out.width * kOversampling;
  height_ = out.height * kOversampling;
  Fill(source, source.left - out.left * kOversampling, out.top * kOversampling - source.top);
  FindNearestRows();
  for (std::int32_t row = 0; row < height_; ++row) {
    FindEnvelope(row);
    MeasureRow(row);
  }

  const float scale = 127.5F / static_cast<float>(reach * kOversampling);
  for (std::int32_t row = 0; row < out.height; ++row) {
    for (std::int32_t column = 0; column < out.width; ++column) {
      const float value = std::clamp(127.5F + Average(column, row) * scale, 0.0F, 255.0F);
      out.texels.push_back(static_cast<std::uint8_t>(std::lround(value)));
    }
  }
}

void DistanceField::Fill(const GlyphPicture& source, std::int32_t column, std::int32_t row) {
  const std::size_t count = static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_);
  coverage_.assign(count, 0.0F);
  nearestRow_.assign(count, kNone);
  toOutline_.resize(count);
  distance_.resize(count);
  starts_.resize(static_cast<std::size_t>(width_) + 1);
  apexes_.resize(static_cast<std::size_t>(width_));
  auto grey = source.texels.begin();
  for (std::int32_t y = 0; y < source.height; ++y) {
    for (std::int32_t x = 0; x < source.width; ++x) {
      coverage_[At(x + column, y + row)] = static_cast<float>(*grey++) / 255.0F;
    }
  }
}

// Cut by the outline, or full beside an empty one where the outline runs between pixels.
bool DistanceField::IsEdge(std::int32_t column, std::int32_t row) const {
  const float here = coverage_[At(column, row)];
  if (here < 1.0F) return here > 0.0F;
  // What is full is never at the rim, there is room around it.
  return coverage_[At(column - 1, row)] == 0.0F || coverage_[At(column + 1, row)] == 0.0F ||
         coverage_[At(column, row - 1)] == 0.0F || coverage_[At(column, row + 1)] == 0.0F;
}

// Across the pixel, along the slope of the coverage around it.
DistanceField::Offset DistanceField::ToOutline(std::int32_t column, std::int32_t row) const {
  constexpr float kStraight = 1.4142136F;
  const auto at = [this, column, row](std::int32_t x, std::int32_t y) { return coverage_[At(column + x, row + y)]; };
  const float x = at(1, -1) + kStraight * at(1, 0) + at(1, 1) - at(-1, -1) - kStraight * at(-1, 0) - at(-1, 1);
  const float y = at(-1, 1) + kStraight * at(0, 1) + at(1, 1) - at(-1, -1) - kStraight * at(0, -1) - at(1, -1);
  const float length = std::hypot(x, y);
  if (length < 1e-4F) return {};
  const float larger = std::max(std::abs(x), std::abs(y)) / length;
  const float smaller = std::min(std::abs(x), std::abs(y)) / length;
  const float depth = DepthOf(at(0, 0), larger, smaller);
  return {-x / length * depth, -y / length * depth};
}

void DistanceField::FindNearestRows() {
  for (std::int32_t column = 0; column < width_; ++column) {
    std::int32_t above = kNone;
    for (std::int32_t row = 0; row < height_; ++row) {
      if (IsEdge(column, row)) {
        above = row;
        toOutline_[At(column, row)] = ToOutline(column, row);
      }
      nearestRow_[At(column, row)] = above;
    }
    std::int32_t below = kNone;
    for (std::int32_t row = height_ - 1; row >= 0; --row) {
      std::int32_t& nearest = nearestRow_[At(column, row)];
      if (nearest == row) below = row;
      if (below != kNone && below - row < row - nearest) nearest = below;
    }
  }
}

// The squared distances along a row to the nearest edge of each column are parabolas with their apexes on the columns.
// The lower envelope of them is built from left to right, dropping those that a later one undercuts.
void DistanceField::FindEnvelope(std::int32_t row) {
  constexpr float kInfinity = std::numeric_limits<float>::infinity();
  const auto height = [this, row](std::int32_t column) { return Square(row - nearestRow_[At(column, row)]); };
  const auto meeting = [&height](std::int32_t a, std::int32_t b) {
    return static_cast<float>((height(b) + Square(b) - height(a) - Square(a)) / (2.0 * (b - a)));
  };
  std::size_t last = 0;
  apexes_[0] = 0;
  starts_[0] = -kInfinity;
  for (std::int32_t column = 1; column < width_; ++column) {
    float start = meeting(apexes_[last], column);
    while (last > 0 && start <= starts_[last]) start = meeting(apexes_[--last], column);
    ++last;
    apexes_[last] = column;
    starts_[last] = start;
  }
  starts_[last + 1] = kInfinity;
}

// From the middle of each pixel to the outline in the nearest edge pixel.
void DistanceField::MeasureRow(std::int32_t row) {
  std::size_t parabola = 0;
  for (std::int32_t column = 0; column < width_; ++column) {
    while (starts_[parabola + 1] < static_cast<float>(column)) ++parabola;
    const std::int32_t edgeColumn = apexes_[parabola];
    const std::int32_t edgeRow = nearestRow_[At(edgeColumn, row)];
    const std::size_t here = At(column, row);
    const float away = edgeRow == kNone ? kFar : NearOutline(column, row, edgeColumn, edgeRow);
    distance_[here] = coverage_[here] < 0.5F ? -away : away;
  }
}

// The outline in a neighbour may be nearer than in the edge pixel whose middle is nearest. That matters only close to
// it, where the shape is decided.
float DistanceField::NearOutline(std::int32_t column, std::int32_t row, std::int32_t edgeColumn,
                                 std::int32_t edgeRow) const {
  const auto through = [this, column, row](std::int32_t x, std::int32_t y) {
    const Offset& outline = toOutline_[At(x, y)];
    return std::hypot(static_cast<float>(x - column) + outline.x, static_cast<float>(y - row) + outline.y);
  };
  constexpr float kClose = 4.0F;
  float nearest = through(edgeColumn, edgeRow);
  if (nearest > kClose) return nearest;
  for (std::int32_t y = edgeRow - 1; y <= edgeRow + 1; ++y) {
    for (std::int32_t x = edgeColumn - 1; x <= edgeColumn + 1; ++x) {
      if (IsEdge(x, y)) nearest = std::min(nearest, through(x, y));
    }
  }
  return nearest;
}

// Of the pixels under a texel.
float DistanceField::Average(std::int32_t column, std::int32_t row) const {
  float sum = 0.0F;
  for (std::int32_t y = 0; y < kOversampling; ++y) {
    for (std::int32_t x = 0; x < kOversampling; ++x) {
      sum += distance_[At(column * kOversampling + x, row * kOversampling + y)];
    }
  }
  return sum / (kOversampling * kOversampling);
}

}  // namespace qen::host
