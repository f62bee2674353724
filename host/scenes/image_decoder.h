// Picture files: PNG, JPEG, TGA and BMP.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "base/backends/image.h"

namespace qen::host {

// Nothing when the bytes are no whole picture, or one of more than 64 million pixels.
std::optional<base::Image> DecodeImage(std::span<const std::uint8_t> bytes);

}  // namespace qen::host
