// Reads glTF files made by tests.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "base/recording/fake_files.h"
#include "base/utf.h"
#include "host/scenes/gltf_scenes.h"
#include "tests/host/gltf_builder.h"

namespace qen::host {

MATCHER_P3(IsVec3, x, y, z, "") {
  const auto near = [](float a, float b) { return std::abs(a - b) < 1e-5F; };
  return near(arg.x, x) && near(arg.y, y) && near(arg.z, z);
}

class GltfTest : public ::testing::Test {
 protected:
  // The scene of a file that must be good.
  base::SceneData Scene(const Bytes& file, bool withTextures = true) {
    auto scene = scenes.ParseScene(u"scenes\\test.gltf", file, withTextures, error);
    EXPECT_TRUE(scene.has_value()) << base::ToUtf8(error);
    return scene.value_or(base::SceneData{});
  }

  base::AnimationData Animation(const Bytes& file) {
    auto animation = scenes.ParseAnimation(u"anims\\test.glb", file, error);
    EXPECT_TRUE(animation.has_value()) << base::ToUtf8(error);
    return animation.value_or(base::AnimationData{});
  }

  // Why the scene of a bad file is refused; empty when it is not.
  std::string WhyRefused(const Bytes& file) {
    error.clear();
    return scenes.ParseScene(u"test.glb", file, true, error).has_value() ? "" : base::ToUtf8(error);
  }

  base::FakeFiles files;
  std::vector<std::string> warnings;
  GltfScenes scenes{files, [this](StringView line) { warnings.push_back(base::ToUtf8(line)); }};
  String error;
  GltfBuilder builder;
};

}  // namespace qen::host
