#include "host/app/picture_compare.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "host/app/picture_file.h"

namespace qen::host {
namespace {

constexpr std::size_t kRgbaChannels = 4;
constexpr std::size_t kColors = 3;
constexpr int kClearly = 40;         // levels
constexpr double kFarShare = 0.001;  // of the pixels, at the usual tolerance
constexpr int kBrightening = 8;

}  // namespace

bool PictureDifference::IsWithin(double tolerance) const {
  return comparable && mean <= tolerance && farShare <= kFarShare * tolerance / kPictureTolerance;
}

PictureDifference ComparePictures(const std::filesystem::path& file, const std::filesystem::path& golden) {
  const auto a = ReadPicture(file);
  const auto b = ReadPicture(golden);
  PictureDifference result;
  result.comparable = a && b && a->width == b->width && a->height == b->height && !a->rgba.empty();
  if (!result.comparable) return result;
  result.shown = *a;
  double sum = 0.0;
  std::size_t far = 0;
  for (std::size_t pixel = 0; pixel < a->rgba.size(); pixel += kRgbaChannels) {
    int largest = 0;
    for (std::size_t i = pixel; i < pixel + kColors; ++i) {
      const int levels = std::abs(int{a->rgba[i]} - int{b->rgba[i]});
      largest = std::max(largest, levels);
      sum += levels;
      result.shown.rgba[i] = static_cast<std::uint8_t>(std::min(255, levels * kBrightening));
    }
    if (largest > kClearly) ++far;
  }
  const double pixels = static_cast<double>(a->rgba.size()) / kRgbaChannels;
  result.mean = sum / (pixels * kColors);
  result.farShare = static_cast<double>(far) / pixels;
  return result;
}

}  // namespace qen::host
