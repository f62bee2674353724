#include "tests/sample/sample_data.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "base/utf.h"
#include "host/scenes/gltf_scenes.h"

namespace qen::test {
namespace {

namespace fs = std::filesystem;

constexpr const char* kFolder = "samples/skylantern";

void KeepCorners(base::SubMeshData& subMesh) {
  if (subMesh.vertices.empty()) return;
  const auto [left, right] = std::ranges::minmax(subMesh.vertices, {}, [](const auto& v) { return v.position.x; });
  const auto [low, high] = std::ranges::minmax(subMesh.vertices, {}, [](const auto& v) { return v.position.y; });
  const auto [far, near] = std::ranges::minmax(subMesh.vertices, {}, [](const auto& v) { return v.position.z; });
  subMesh.vertices = {left, right, low, high, far, near};
  subMesh.indices = {0, 1, 2, 3, 4, 5};
}

base::SceneData Reduce(base::SceneData scene) {
  for (auto& mesh : scene.meshes) std::ranges::for_each(mesh, KeepCorners);
  for (base::Image& image : scene.images) image = {1, 1, {255, 255, 255, 255}};
  return scene;
}

std::vector<std::uint8_t> ReadBytes(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

template <class T>
T Taken(std::optional<T> read, const fs::path& file) {
  if (!read) throw std::runtime_error("cannot read " + file.string());
  return *std::move(read);
}

}  // namespace

const SampleData& SampleData::Get() {
  static const SampleData data;
  return data;
}

SampleData::SampleData() {
  base::FakeFiles none;
  host::GltfScenes reader(none, [](StringView) {});
  for (const auto& entry : fs::recursive_directory_iterator(kFolder)) {
    if (!entry.is_regular_file()) continue;
    const fs::path& file = entry.path();
    const fs::path place = file.lexically_relative(kFolder);
    const String name = base::ToUtf16(place.generic_string());
    const std::string folder = place.begin()->string();
    String error;
    if (folder == "scenes") {
      scenes_[name] = Reduce(Taken(reader.ParseScene(name, ReadBytes(file), true, error), file));
    } else if (folder == "anims") {
      animations_[name] = Taken(reader.ParseAnimation(name, ReadBytes(file), error), file);
    } else {
      files_[name] = ReadBytes(file);
    }
  }
}

void SampleData::AddTo(base::RecordingEngine& engine) const {
  for (const auto& [name, bytes] : files_) engine.files.Add(name, bytes);
  for (const auto& [name, scene] : scenes_) engine.AddScene(name, scene);
  for (const auto& [name, animation] : animations_) engine.AddAnimation(name, animation);
}

}  // namespace qen::test
