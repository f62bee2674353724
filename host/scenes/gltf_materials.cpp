#include "host/scenes/gltf_materials.h"

#include <nlohmann/json.hpp>
#include <string>
#include <unordered_map>

#include "base/utf.h"
#include "host/scenes/image_decoder.h"

namespace qen::host {
namespace {

using base::Image;
using base::MaterialData;

std::optional<Image> ReadImage(const GltfDocument& document, std::size_t index) {
  const Json& image = document.Item("images", index);
  if (const auto view = Index(image, "bufferView")) return DecodeImage(document.View(*view).bytes);
  return DecodeImage(document.Fetch(Text(image, "uri", "")));
}

// Reads every picture once, when it is first asked for.
class Pictures {
 public:
  Pictures(const GltfDocument& document, const WarningSink& warn, std::vector<Image>& images)
      : document_(document), warn_(warn), images_(images) {}

  // The position of the picture that a texture of a material shows; -1 when there is none.
  std::int32_t Find(const Json* textureInfo) {
    if (textureInfo == nullptr) return -1;
    const auto source = Index(document_.Item("textures", RequiredIndex(*textureInfo, "index")), "source");
    if (!source) return -1;
    const auto known = positions_.find(*source);
    return known != positions_.end() ? known->second : positions_[*source] = Add(*source);
  }

 private:
  std::int32_t Add(std::size_t source) {
    std::string problem = "not a picture";
    try {
      if (auto image = ReadImage(document_, source)) {
        images_.push_back(*std::move(image));
        return static_cast<std::int32_t>(images_.size() - 1);
      }
    } catch (const GltfError& error) {
      problem = error.what();
    }
    warn_(base::ToUtf16("image " + std::to_string(source) + ": " + problem));
    return -1;
  }

  const GltfDocument& document_;
  const WarningSink& warn_;
  std::vector<Image>& images_;
  std::unordered_map<std::size_t, std::int32_t> positions_;
};

AlphaMode ReadAlphaMode(const Json& material) {
  const std::string mode = Text(material, "alphaMode", "OPAQUE");
  if (mode == "BLEND") return AlphaMode::Blend;
  return mode == "MASK" ? AlphaMode::Mask : AlphaMode::Opaque;
}

const Json* Extension(const Json& material, const char* name) { return Member(material, "extensions", name); }

MaterialParams ReadParams(const Json& material) {
  static const Json kNone = Json::object();
  const Json* metallicRoughness = Member(material, "pbrMetallicRoughness");
  const Json& surface = metallicRoughness == nullptr ? kNone : *metallicRoughness;
  MaterialParams params;
  ReadNumbers(surface, "baseColorFactor", params.baseColor);
  params.metallic = Number(surface, "metallicFactor", 1.0F);
  params.roughness = Number(surface, "roughnessFactor", 1.0F);
  ReadNumbers(material, "emissiveFactor", params.emissive);
  if (const Json* strength = Extension(material, "KHR_materials_emissive_strength")) {
    for (float& channel : params.emissive) channel *= Number(*strength, "emissiveStrength", 1.0F);
  }
  params.alphaMode = ReadAlphaMode(material);
  params.alphaCutoff = Number(material, "alphaCutoff", 0.5F);
  params.doubleSided = Flag(material, "doubleSided", false);
  if (Extension(material, "KHR_materials_unlit") != nullptr) {
    // A rough surface facing the light shows its own colours. Light of its own would do so at every angle, but keep the
    // picture from being exchanged.
    params.metallic = 0.0F;
    params.roughness = 1.0F;
    params.emissive = {};
  }
  return params;
}

}  // namespace

void ReadMaterials(const GltfDocument& document, bool withTextures, const WarningSink& warn, base::SceneData& scene) {
  Pictures pictures(document, warn, scene.images);
  for (const Json& json : Elements(document.Root(), "materials")) {
    MaterialData& material = scene.materials.emplace_back();
    material.params = ReadParams(json);
    if (!withTextures) continue;
    material.baseImage = pictures.Find(Member(json, "pbrMetallicRoughness", "baseColorTexture"));
    material.emissiveImage = pictures.Find(Member(json, "emissiveTexture"));
  }
}

}  // namespace qen::host
