// Compares pictures with a tolerance for what drivers round differently.
#pragma once

#include <string>

namespace qen::test {

struct PictureDifference {
  bool comparable = false;  // both could be read and are of one size
  double mean = 0.0;        // of all channels, 0 to 255
  double farShare = 0.0;    // of the pixels that differ clearly, 0 to 1
};

// Compares two PNG files. With a name for `difference`, writes there what differs, brightened.
PictureDifference ComparePictures(const std::string& file, const std::string& golden, const std::string& difference);

}  // namespace qen::test
