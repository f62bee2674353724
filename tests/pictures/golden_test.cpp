// The sample's pages look as they did. GUI_UPDATE_GOLDENS=1 renews the goldens instead of comparing.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <ostream>

#include "host/app/picture_compare.h"
#include "host/app/picture_file.h"

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
  const host::PictureDifference found = host::ComparePictures(file, golden);
  ASSERT_TRUE(found.comparable) << file << " against " << golden;
  host::WritePicture(found.shown, difference);
  EXPECT_TRUE(found.IsWithin(host::kPictureTolerance))
      << difference << ": " << found.mean << " levels, " << found.farShare << " of the pixels clearly";
}

void PrintTo(const Shot& shot, std::ostream* out) { *out << shot.Name(); }

INSTANTIATE_TEST_SUITE_P(Sample, Golden,
                         ::testing::Values(Shot{"main_menu", "640x480", "english"},
                                           Shot{"main_menu", "960x540", "german"}, Shot{"options", "640x480", "arabic"},
                                           Shot{"options", "640x480", "japanese"},
                                           Shot{"load_game", "640x480", "german"},
                                           Shot{"name_entry", "480x640", "japanese"}, Shot{"help", "640x480", "arabic"},
                                           Shot{"help", "640x480", "japanese"}, Shot{"credits", "640x480", "english"},
                                           Shot{"inventory", "640x480", "english"},
                                           Shot{"quit_dialog", "480x640", "english"}),
                         [](const auto& shot) { return shot.param.Name(); });

// What the comparison must let pass and what it must not.
class PictureComparison : public ::testing::Test {
 protected:
  // The golden picture against itself, moved `shift` pixels to the left and made `levels` brighter.
  host::PictureDifference Compare(std::size_t shift, int levels) {
    const fs::path golden = "tests/pictures/golden/options_640x480_arabic.png";
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
  EXPECT_FALSE(host::ComparePictures(folder / "options_640x480_arabic.png", folder / "options_640x480_japanese.png")
                   .IsWithin(host::kPictureTolerance))
      << "a few words in another language";
  EXPECT_FALSE(
      host::ComparePictures(folder / "options_640x480_arabic.png", folder / "main_menu_960x540_german.png").comparable);
  EXPECT_FALSE(host::ComparePictures(folder / "none.png", folder / "none.png").comparable);
}

}  // namespace
}  // namespace qen::test
