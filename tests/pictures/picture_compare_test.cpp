// What the comparison of pictures must let pass and what it must not.
#include "host/app/picture_compare.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "host/app/picture_file.h"

namespace qen::test {
namespace {

namespace fs = std::filesystem;

class PictureComparison : public ::testing::Test {
 protected:
  // The golden picture against itself, moved `shift` pixels to the left and made `levels` brighter.
  host::PictureDifference Compare(std::size_t shift, int levels) {
    const fs::path golden = "tests/pictures/golden/options_arabic_400x300.png";
    const base::Image image = host::ReadPicture(golden).value();
    base::Image changed = image;
    for (std::size_t i = 0; i < image.rgba.size(); ++i) {
      const std::size_t from = std::min(i + shift * 4, image.rgba.size() - 4 + i % 4);
      changed.rgba[i] = static_cast<std::uint8_t>(std::min(image.rgba[from] + levels, 255));
    }
    const fs::path file = fs::path(PICTURE_FOLDER) / "changed.png";
    host::WritePicture(changed, file);
    return host::ComparePictures(file, golden);
  }
};

TEST_F(PictureComparison, PassesWhatDriversRoundDifferently) {
  EXPECT_TRUE(Compare(0, 0).IsWithin(0.0));
  EXPECT_TRUE(Compare(0, 1).IsWithin(host::kPictureTolerance));
}

TEST_F(PictureComparison, FailsForWhatPeopleSee) {
  EXPECT_FALSE(Compare(4, 0).IsWithin(host::kPictureTolerance)) << "moved";
  EXPECT_FALSE(Compare(0, 4).IsWithin(host::kPictureTolerance)) << "brighter";
  const fs::path folder = "tests/pictures/golden";
  EXPECT_FALSE(host::ComparePictures(folder / "options_arabic_400x300.png", folder / "options_japanese_400x300.png")
                   .IsWithin(host::kPictureTolerance))
      << "a few words in another language";
  EXPECT_FALSE(
      host::ComparePictures(folder / "options_arabic_400x300.png", folder / "main_menu_german_533x300.png").comparable);
  EXPECT_FALSE(host::ComparePictures(folder / "none.png", folder / "none.png").comparable);
}

}  // namespace
}  // namespace qen::test
