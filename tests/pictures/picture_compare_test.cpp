// What the comparison of pictures must let pass and what it must not.
#include "host/app/picture_compare.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <utility>

#include "host/app/picture_file.h"

namespace qen::test {
namespace {

const std::filesystem::path kFolder = "tests/pictures/golden";
const std::filesystem::path kGolden = kFolder / "options_arabic_400x300.png";

TEST(PictureComparison, PassesWhatDriversRoundDifferentlyAndFailsForWhatPeopleSee) {
  const base::Image image = host::ReadPicture(kGolden).value();
  const std::filesystem::path file = std::filesystem::path(PICTURE_FOLDER) / "brighter.png";
  for (const auto& [levels, same] : {std::pair{0, true}, {1, true}, {4, false}}) {
    base::Image brighter = image;
    for (std::uint8_t& value : brighter.rgba) value = static_cast<std::uint8_t>(std::min(value + levels, 255));
    host::WritePicture(brighter, file);
    EXPECT_EQ(host::ComparePictures(file, kGolden).IsWithin(host::kPictureTolerance), same) << levels;
  }
  const auto against = [](const char* name) { return host::ComparePictures(kGolden, kFolder / name); };
  EXPECT_FALSE(against("options_japanese_400x300.png").IsWithin(host::kPictureTolerance)) << "a few words";
  EXPECT_FALSE(against("none.png").comparable);
  EXPECT_TRUE(host::ComparePictures(kGolden, kGolden).IsWithin(0.0));
  EXPECT_EQ(host::ComparePictures(kGolden, kGolden).farShare, 0.0);
}

}  // namespace
}  // namespace qen::test
