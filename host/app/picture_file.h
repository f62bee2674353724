// Pictures as PNG files.
#pragma once

#include <filesystem>
#include <optional>

#include "base/backends/image.h"

namespace qen::host {

// Writes a picture, opaque, and makes the folders it is in. Throws std::runtime_error, naming the file, when it cannot
// be written.
void WritePicture(const base::Image& image, const std::filesystem::path& file);

// Nothing when the file cannot be read or is no picture.
std::optional<base::Image> ReadPicture(const std::filesystem::path& file);

}  // namespace qen::host
