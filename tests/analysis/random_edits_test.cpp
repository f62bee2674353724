#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <random>

#include "analysis/printers.h"
#include "base/recording/fake_files.h"
#include "base/recording/fake_fonts.h"
#include "base/utf.h"
#include "formats/source_text.h"
#include "host/scenes/gltf_scenes.h"

namespace qen::analysis {
namespace {

namespace fs = std::filesystem;
using Bytes = std::vector<std::uint8_t>;

// Scenes are only parsed once; the definitions change, not they.
class KeptScenes final : public base::ISceneBackend {
 public:
  explicit KeptScenes(base::IFileBackend& files) : parser_(files, [](StringView) {}) {}

  std::optional<base::SceneData> ParseScene(StringView file, std::span<const std::uint8_t> bytes, bool withTextures,
                                            String& error) override {
    const auto [place, isNew] = scenes_.try_emplace(String(file));
    if (isNew) place->second = parser_.ParseScene(file, bytes, withTextures, error);
    return place->second;
  }
  std::optional<base::AnimationData> ParseAnimation(StringView file, std::span<const std::uint8_t> bytes,
                                                    String& error) override {
    const auto [place, isNew] = animations_.try_emplace(String(file));
    if (isNew) place->second = parser_.ParseAnimation(file, bytes, error);
    return place->second;
  }
  std::optional<base::Image> ParseImage(std::span<const std::uint8_t>) override { return std::nullopt; }

 private:
  host::GltfScenes parser_;
  std::map<String, std::optional<base::SceneData>> scenes_;
  std::map<String, std::optional<base::AnimationData>> animations_;
};

// Takes some bytes out, repeats some, changes some, or puts in what means something.
Bytes EditAtRandom(Bytes bytes, std::minstd_rand& random) {
  constexpr const char* kPieces[] = {"}", "{", "\"", " ", "item ", "~", ":", "-", "9", "\xFF", "textid ", "str1 "};
  const auto below = [&random](std::size_t end) {
    return static_cast<std::ptrdiff_t>(random() % std::max<std::size_t>(end, 1));
  };
  const std::ptrdiff_t at = below(bytes.size());
  const std::ptrdiff_t length = std::min(below(12), static_cast<std::ptrdiff_t>(bytes.size()) - at);
  const auto begin = bytes.begin() + at;
  switch (random() % 4) {
    case 0:
      bytes.erase(begin, begin + length);
      break;
    case 1: {
      const Bytes again(begin, begin + length);
      bytes.insert(bytes.begin() + at, again.begin(), again.end());
      break;
    }
    case 2:
      if (!bytes.empty()) bytes[static_cast<std::size_t>(at)] = static_cast<std::uint8_t>(random() % 256);
      break;
    default: {
      const std::string piece = kPieces[below(std::size(kPieces))];
      bytes.insert(begin, piece.begin(), piece.end());
    }
  }
  return bytes;
}

TEST(Analysis, ComesBackFromAnyEditOfASampleAndSavesItAsItIs) {
  const fs::path root = "samples/skylantern";
  base::FakeFiles files;
  std::map<std::string, Bytes> definitions;
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(root)) {
    if (!entry.is_regular_file()) continue;
    std::ifstream file(entry.path(), std::ios::binary);
    const Bytes bytes(std::istreambuf_iterator<char>(file), {});
    std::string name = fs::relative(entry.path(), root).generic_string();
    std::ranges::replace(name, '/', '\\');
    files.Add(base::ToUtf16(name), bytes);
    if (name.ends_with(".txt")) definitions[name] = bytes;
  }
  ASSERT_GT(definitions.size(), 8U);
  KeptScenes scenes(files);
  base::FakeFonts fonts;
  std::minstd_rand random(1);
  constexpr int kEdits = 4;  // of a file, each on top of the others
  for (const auto& [name, whole] : definitions) {
    Bytes bytes = whole;
    for (int i = 0; i < kEdits; ++i) {
      bytes = EditAtRandom(bytes, random);
      ASSERT_EQ(formats::SourceText(bytes).Edited({}), bytes) << name;
      files.Add(base::ToUtf16(name), bytes);
      const Report report = Check(u"gui.txt", {.files = files, .scenes = scenes, .fonts = &fonts});
      PrintText(report, true);
      for (const Finding& finding : report.findings) ApplyFixes(finding.file, report.findings, files);
    }
    files.Add(base::ToUtf16(name), whole);
  }
}

}  // namespace
}  // namespace qen::analysis
