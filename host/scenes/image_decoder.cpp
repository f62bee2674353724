#include "host/scenes/image_decoder.h"

#include <limits>
#include <memory>

#define STB_IMAGE_IMPLEMENTATION
#define STB_IMAGE_STATIC
#define STBI_NO_STDIO
#define STBI_ONLY_PNG
#define STBI_ONLY_JPEG
#define STBI_ONLY_TGA
#define STBI_ONLY_BMP
#include <stb/stb_image.h>

namespace qen::host {
namespace {

constexpr std::int64_t kMaxPixels = 64'000'000;
constexpr int kChannels = 4;

struct FreePixels {
  void operator()(stbi_uc* pixels) const { stbi_image_free(pixels); }
};

}  // namespace

std::optional<base::Image> DecodeImage(std::span<const std::uint8_t> bytes) {
  if (bytes.size() > static_cast<std::size_t>(std::numeric_limits<int>::max())) return std::nullopt;
  const int size = static_cast<int>(bytes.size());
  base::Image image;
  int channels = 0;
  if (stbi_info_from_memory(bytes.data(), size, &image.width, &image.height, &channels) == 0 || image.width <= 0 ||
      image.height <= 0 || std::int64_t{image.width} * image.height > kMaxPixels) {
    return std::nullopt;
  }
  const std::unique_ptr<stbi_uc, FreePixels> pixels(
      stbi_load_from_memory(bytes.data(), size, &image.width, &image.height, &channels, kChannels));
  if (pixels == nullptr) return std::nullopt;
  const auto count = static_cast<std::size_t>(image.width) * static_cast<std::size_t>(image.height) * kChannels;
  image.rgba.assign(pixels.get(), pixels.get() + count);
  return image;
}

}  // namespace qen::host
