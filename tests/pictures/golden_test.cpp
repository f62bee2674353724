// The sample's pages look as they did. GUI_UPDATE_GOLDENS=1 renews the goldens instead of comparing.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "tests/pictures/picture_compare.h"

namespace qen::test {
namespace {

namespace fs = std::filesystem;

struct Shot {
  std::string page;
  std::string size;
  std::string language;

  [[nodiscard]] std::string Name() const { return page + "_" + size + "_" + language; }
};

class Golden : public ::testing::TestWithParam<Shot> {};

TEST_P(Golden, LooksAsBefore) {
  const Shot& shot = GetParam();
  const fs::path file = fs::path(PICTURE_FOLDER) / (shot.Name() + ".png");
  const fs::path golden = fs::path("tests/pictures/golden") / (shot.Name() + ".png");
  const fs::path difference = fs::path(PICTURE_FOLDER) / (shot.Name() + "_difference.png");
  const std::string command = std::string(GUIHOST_FILE) + " --offscreen --page " + shot.page + " --size " + shot.size +
                              " --language " + shot.language + " --shot " + file.string() +
                              " samples/skylantern/gui.txt >/dev/null";
  fs::remove(file);
  ASSERT_EQ(std::system(command.c_str()), 0) << command;
  if (std::getenv("GUI_UPDATE_GOLDENS") != nullptr) {
    fs::copy_file(file, golden, fs::copy_options::overwrite_existing);
    return;
  }
  const PictureDifference found = ComparePictures(file.string(), golden.string(), difference.string());
  ASSERT_TRUE(found.comparable) << file << " against " << golden;
  EXPECT_LT(found.mean, 1.5) << difference;
  EXPECT_LT(found.farShare, 0.001) << difference;
}

INSTANTIATE_TEST_SUITE_P(Sample, Golden,
                         ::testing::Values(Shot{"main_menu", "640x480", "english"},
                                           Shot{"main_menu", "960x540", "german"}, Shot{"options", "640x480", "arabic"},
                                           Shot{"options", "640x480", "japanese"},
                                           Shot{"quit_dialog", "480x640", "english"}),
                         [](const auto& shot) { return shot.param.Name(); });

// The comparison itself: what it must let pass and what it must not.
TEST(PictureComparison, FailsForAnotherPage) {
  const PictureDifference other = ComparePictures("tests/pictures/golden/options_640x480_arabic.png",
                                                  "tests/pictures/golden/options_640x480_japanese.png", "");
  ASSERT_TRUE(other.comparable);
  EXPECT_GT(other.farShare, 0.001) << "a few words in another language must show";
  EXPECT_FALSE(ComparePictures("tests/pictures/golden/main_menu_640x480_english.png",
                               "tests/pictures/golden/main_menu_960x540_german.png", "")
                   .comparable);
}

}  // namespace
}  // namespace qen::test
