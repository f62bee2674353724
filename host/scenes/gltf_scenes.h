// Scenes, animations and pictures from glTF 2.0 and picture files.
#pragma once

#include "base/backends/file_backend.h"
#include "base/backends/scene_backend.h"
#include "host/scenes/gltf_materials.h"

namespace qen::host {

class GltfScenes final : public base::ISceneBackend {
 public:
  // What scene files name beside them is read from `files`. `warn` hears of what is left out of a scene.
  GltfScenes(base::IFileBackend& files, WarningSink warn);

  std::optional<base::SceneData> ParseScene(StringView file, std::span<const std::uint8_t> bytes, bool withTextures,
                                            String& error) override;
  std::optional<base::AnimationData> ParseAnimation(StringView file, std::span<const std::uint8_t> bytes,
                                                    String& error) override;
  std::optional<base::Image> ParseImage(std::span<const std::uint8_t> bytes) override;

 private:
  base::IFileBackend& files_;
  WarningSink warn_;
};

}  // namespace qen::host
