#include "tests/pictures/picture_compare.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <vector>

#if defined(__GNUC__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wmissing-field-initializers"
#endif
#define STB_IMAGE_IMPLEMENTATION
#define STB_IMAGE_WRITE_IMPLEMENTATION
#define STB_IMAGE_STATIC
#define STB_IMAGE_WRITE_STATIC
#include <stb/stb_image.h>
#include <stb/stb_image_write.h>
#if defined(__GNUC__)
#pragma GCC diagnostic pop
#endif

namespace qen::test {
namespace {

constexpr int kChannels = 3;
constexpr int kClearly = 40;  // levels

struct Picture {
  explicit Picture(const std::string& file)
      : pixels(stbi_load(file.c_str(), &width, &height, nullptr, kChannels), stbi_image_free) {}

  [[nodiscard]] std::size_t Size() const { return static_cast<std::size_t>(width) * static_cast<std::size_t>(height); }

  int width = 0;
  int height = 0;
  std::unique_ptr<stbi_uc, void (*)(void*)> pixels;
};

}  // namespace

PictureDifference ComparePictures(const std::string& file, const std::string& golden, const std::string& difference) {
  const Picture a(file);
  const Picture b(golden);
  PictureDifference result;
  result.comparable = a.pixels && b.pixels && a.width == b.width && a.height == b.height;
  if (!result.comparable) return result;

  constexpr int kBrightening = 8;
  std::vector<std::uint8_t> shown(a.Size() * kChannels);
  double sum = 0.0;
  std::size_t far = 0;
  for (std::size_t pixel = 0; pixel < a.Size(); ++pixel) {
    int largest = 0;
    for (std::size_t i = pixel * kChannels; i < (pixel + 1) * kChannels; ++i) {
      const int levels = std::abs(int{a.pixels.get()[i]} - int{b.pixels.get()[i]});
      largest = std::max(largest, levels);
      sum += levels;
      shown[i] = static_cast<std::uint8_t>(std::min(255, levels * kBrightening));
    }
    if (largest > kClearly) ++far;
  }
  result.mean = sum / static_cast<double>(shown.size());
  result.farShare = static_cast<double>(far) / static_cast<double>(a.Size());
  if (!difference.empty()) {
    stbi_write_png(difference.c_str(), a.width, a.height, kChannels, shown.data(), a.width * kChannels);
  }
  return result;
}

}  // namespace qen::test
