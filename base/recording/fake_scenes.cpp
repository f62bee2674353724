#include "base/recording/fake_scenes.h"

#include <string_view>
#include <utility>

#include "base/resource_store.h"

namespace qen::base {
namespace {

bool IsBroken(std::span<const std::uint8_t> bytes) {
  return std::string_view(reinterpret_cast<const char*>(bytes.data()), bytes.size()).starts_with("bad");
}

template <class T>
std::optional<T> Find(const std::unordered_map<String, T>& known, StringView file, std::span<const std::uint8_t> bytes,
                      String& error) {
  const auto found = known.find(FileKey(file));
  if (!IsBroken(bytes) && found != known.end()) return found->second;
  error = u"unknown format";
  return std::nullopt;
}

}  // namespace

std::optional<SceneData> FakeScenes::ParseScene(StringView file, std::span<const std::uint8_t> bytes, bool withTextures,
                                                String& error) {
  std::optional<SceneData> scene = Find(scenes_, file, bytes, error);
  if (scene && !withTextures) scene->images.clear();
  return scene;
}

std::optional<AnimationData> FakeScenes::ParseAnimation(StringView file, std::span<const std::uint8_t> bytes,
                                                        String& error) {
  return Find(animations_, file, bytes, error);
}

std::optional<Image> FakeScenes::ParseImage(std::span<const std::uint8_t> bytes) {
  if (IsBroken(bytes)) return std::nullopt;
  return Image{2, 2, std::vector<std::uint8_t>(16, 255)};
}

void FakeScenes::AddScene(StringView file, SceneData scene) { scenes_[FileKey(file)] = std::move(scene); }

void FakeScenes::AddAnimation(StringView file, AnimationData animation) {
  animations_[FileKey(file)] = std::move(animation);
}

}  // namespace qen::base
