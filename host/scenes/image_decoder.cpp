#include "host/scenes/image_decoder.h"

#include <algorithm>
#include <array>
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

// Whether no chunk of a PNG file claims to be longer than what is left of the file; true for other files. The decoder
// makes room for all of a chunk before it reads any.
bool HoldsItsChunks(std::span<const std::uint8_t> bytes) {
  constexpr std::array<std::uint8_t, 8> kSignature{0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
  constexpr std::array<std::uint8_t, 4> kLastType{'I', 'E', 'N', 'D'};
  constexpr std::size_t kBesides = 12;  // length, type and checksum
  if (bytes.size() < kSignature.size() || !std::equal(kSignature.begin(), kSignature.end(), bytes.begin())) return true;
  for (auto rest = bytes.subspan(kSignature.size()); rest.size() >= kBesides;) {
    const std::size_t length =
        std::size_t{rest[0]} << 24 | std::size_t{rest[1]} << 16 | std::size_t{rest[2]} << 8 | rest[3];
    if (length > rest.size() - kBesides) return false;
    if (std::equal(kLastType.begin(), kLastType.end(), rest.begin() + 4)) return true;  // what follows is not read
    rest = rest.subspan(length + kBesides);
  }
  return true;
}

struct FreePixels {
  void operator()(stbi_uc* pixels) const { stbi_image_free(pixels); }
};

}  // namespace

std::optional<base::Image> DecodeImage(std::span<const std::uint8_t> bytes) {
  if (bytes.size() > static_cast<std::size_t>(std::numeric_limits<int>::max())) return std::nullopt;
  if (!HoldsItsChunks(bytes)) return std::nullopt;
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
