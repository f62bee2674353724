#include "host/app/picture_file.h"

#include <cstdint>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <vector>

#include "host/scenes/image_decoder.h"

#define STB_IMAGE_WRITE_IMPLEMENTATION
#define STB_IMAGE_WRITE_STATIC
#define STBI_WRITE_NO_STDIO
#include <stb/stb_image_write.h>

namespace qen::host {
namespace {

constexpr int kRgbChannels = 3;

// What was blended into the frame's alpha says nothing about the picture.
std::vector<std::uint8_t> WithoutAlpha(const std::vector<std::uint8_t>& rgba) {
  std::vector<std::uint8_t> rgb;
  rgb.reserve(rgba.size() / 4 * kRgbChannels);
  for (std::size_t i = 0; i + 3 < rgba.size(); i += 4) rgb.insert(rgb.end(), {rgba[i], rgba[i + 1], rgba[i + 2]});
  return rgb;
}

}  // namespace

void WritePicture(const base::Image& image, const std::filesystem::path& file) {
  const std::vector<std::uint8_t> rgb = WithoutAlpha(image.rgba);
  std::error_code isFailed;  // then the file cannot be opened either
  std::filesystem::create_directories(file.parent_path(), isFailed);
  std::ofstream stream(file, std::ios::binary);
  const auto append = [](void* target, void* bytes, int size) {
    static_cast<std::ofstream*>(target)->write(static_cast<const char*>(bytes), size);
  };
  const int encoded = stbi_write_png_to_func(append, &stream, image.width, image.height, kRgbChannels, rgb.data(),
                                             kRgbChannels * image.width);
  stream.close();
  if (encoded == 0 || !stream) throw std::runtime_error("cannot write " + file.string());
}

std::optional<base::Image> ReadPicture(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  const std::vector<char> bytes{std::istreambuf_iterator<char>(stream), {}};
  return DecodeImage({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()});
}

}  // namespace qen::host
