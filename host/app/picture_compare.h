// Compares pictures with a tolerance for what drivers round differently.
#pragma once

#include <filesystem>

#include "base/backends/image.h"

namespace qen::host {

inline constexpr double kPictureTolerance = 1.5;  // levels of 255 that pictures may differ by on average

struct PictureDifference {
  // At most so many levels on average, and hardly any pixel by much.
  [[nodiscard]] bool IsWithin(double tolerance) const;

  bool comparable = false;  // both could be read and are of one size
  double mean = 0.0;        // of all channels, in levels
  double farShare = 0.0;    // of the pixels that differ clearly, 0 to 1
  base::Image shown;        // what differs, brightened
};

// Compares two PNG files.
PictureDifference ComparePictures(const std::filesystem::path& file, const std::filesystem::path& golden);

}  // namespace qen::host
