#include "host/scenes/gltf_scenes.h"

#include <algorithm>
#include <exception>
#include <utility>

#include "base/utf.h"
#include "host/scenes/gltf_accessors.h"
#include "host/scenes/gltf_animations.h"
#include "host/scenes/gltf_document.h"
#include "host/scenes/gltf_lights.h"
#include "host/scenes/gltf_meshes.h"
#include "host/scenes/gltf_nodes.h"
#include "host/scenes/gltf_undrawn.h"
#include "host/scenes/image_decoder.h"

namespace qen::host {
namespace {

// Names out of files may hold anything.
String OneLine(String text) {
  std::ranges::replace_if(
      text, [](Char c) { return c < u' '; }, u'?');
  return text;
}

// What `read` returns, or nothing and the reason of its exception.
template <class Read>
auto ReadOrExplain(Read read, String& error) -> std::optional<decltype(read())> {
  try {
    return read();
  } catch (const std::exception& problem) {
    error = OneLine(base::ToUtf16(problem.what()));
    return std::nullopt;
  }
}

}  // namespace

GltfScenes::GltfScenes(base::IFileBackend& files, WarningSink warn) : files_(files), warn_(std::move(warn)) {}

std::optional<base::SceneData> GltfScenes::ParseScene(StringView file, std::span<const std::uint8_t> bytes,
                                                      bool withTextures, String& error) {
  const auto warnAboutFile = [this, file](StringView line) { warn_(String(file) + u": " + OneLine(String(line))); };
  return ReadOrExplain(
      [&] {
        const GltfDocument document(file, bytes, files_);
        GltfAccessors accessors(document);
        base::SceneData scene;
        scene.nodes = ReadNodes(document);
        scene.meshes = ReadMeshes(document, accessors);
        ReadMaterials(document, withTextures, warnAboutFile, scene);
        scene.ambient = ReadAmbient(document);
        scene.undrawn = FindUndrawn(document);
        return scene;
      },
      error);
}

std::optional<base::AnimationData> GltfScenes::ParseAnimation(StringView file, std::span<const std::uint8_t> bytes,
                                                              String& error) {
  return ReadOrExplain(
      [&] {
        const GltfDocument document(file, bytes, files_);
        GltfAccessors accessors(document);
        return ReadAnimations(document, accessors);
      },
      error);
}

std::optional<base::Image> GltfScenes::ParseImage(std::span<const std::uint8_t> bytes) { return DecodeImage(bytes); }

}  // namespace qen::host
