// Scene files that are made in the program.
#pragma once

#include <cstdint>
#include <unordered_map>

#include "base/backends/scene_backend.h"

namespace qen::base {

// Knows scenes and animations by their file names; what is in the files does not matter. A file whose content begins
// with "bad" is broken, any other is a picture of 2 x 2 white pixels when asked for one.
class QEN_API FakeScenes final : public ISceneBackend {
 public:
  std::optional<SceneData> ParseScene(StringView file, std::span<const std::uint8_t> bytes, bool withTextures,
                                      String& error) override;
  std::optional<AnimationData> ParseAnimation(StringView file, std::span<const std::uint8_t> bytes,
                                              String& error) override;
  std::optional<Image> ParseImage(std::span<const std::uint8_t> bytes) override;

  void AddScene(StringView file, SceneData scene);
  void AddAnimation(StringView file, AnimationData animation);

 private:
  std::unordered_map<String, SceneData> scenes_;
  std::unordered_map<String, AnimationData> animations_;
};

}  // namespace qen::base
