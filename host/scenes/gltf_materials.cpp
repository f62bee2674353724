#include "host/scenes/gltf_materials.h"

#include <array>
#include <cmath>
#include <map>
#include <nlohmann/json.hpp>
#include <string>
#include <utility>

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

// Reads every picture once for colours and once for numbers, when it is first asked for.
class Pictures {
 public:
  Pictures(const GltfDocument& document, const WarningSink& warn, std::vector<Image>& images)
      : document_(document), warn_(warn), images_(images) {}

  // The position of the picture that a texture of a material shows; -1 when there is none.
  std::int32_t Find(const Json& textureInfo, bool isColor) {
    const auto source = Index(document_.Item("textures", RequiredIndex(textureInfo, "index")), "source");
    if (!source) return -1;
    const auto [place, isNew] = positions_.try_emplace({*source, isColor}, -1);
    if (isNew) place->second = Add(*source, isColor);
    return place->second;
  }

 private:
  std::int32_t Add(std::size_t source, bool isColor) {
    std::string problem = "not a picture";
    try {
      if (auto image = ReadImage(document_, source)) {
        image->isLinear = !isColor;
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
  std::map<std::pair<std::size_t, bool>, std::int32_t> positions_;
};

struct TextureMember {
  TEXTURE_SLOT slot = TEXTURE_SLOT_0;
  const char* name = nullptr;
  bool isOfSurface = false;  // a member of "pbrMetallicRoughness"
  bool isColor = false;
  const char* strength = nullptr;  // a number beside the texture, and where it goes
  float MaterialParams::*target = nullptr;
};
constexpr std::array kTextureMembers{
    TextureMember{TEXTURE_SLOT_1, "baseColorTexture", true, true},
    TextureMember{TEXTURE_SLOT_0, "emissiveTexture", false, true},
    TextureMember{TEXTURE_SLOT_2, "normalTexture", false, false, "scale", &MaterialParams::normalScale},
    TextureMember{TEXTURE_SLOT_3, "metallicRoughnessTexture", true, false},
    TextureMember{TEXTURE_SLOT_4, "occlusionTexture", false, false, "strength", &MaterialParams::occlusionStrength}};

const Json* Extension(const Json& object, const char* name) { return Member(object, "extensions", name); }

std::uint32_t ReadUvSet(const Json& textureInfo, const Json* transform) {
  constexpr std::size_t kSets = 2;
  auto set = Index(textureInfo, "texCoord");
  if (transform != nullptr) {
    if (const auto other = Index(*transform, "texCoord")) set = other;
  }
  return set.value_or(0) < kSets ? static_cast<std::uint32_t>(set.value_or(0)) : 0;
}

// Scaled, then turned, then moved.
TexturePlacement ReadPlacement(const Json& textureInfo) {
  const Json* transform = Extension(textureInfo, "KHR_texture_transform");
  TexturePlacement placement;
  placement.uvSet = ReadUvSet(textureInfo, transform);
  if (transform == nullptr) return placement;
  std::array<float, 2> offset{};
  std::array<float, 2> scale{1.0F, 1.0F};
  ReadNumbers(*transform, "offset", offset);
  ReadNumbers(*transform, "scale", scale);
  const float angle = Number(*transform, "rotation", 0.0F);
  const float c = std::cos(angle);
  const float s = std::sin(angle);
  placement.x = {c * scale[0], s * scale[1], offset[0]};
  placement.y = {-s * scale[0], c * scale[1], offset[1]};
  return placement;
}

void ReadTextures(const Json& json, Pictures& pictures, MaterialData& material) {
  for (const TextureMember& member : kTextureMembers) {
    const Json* info =
        member.isOfSurface ? Member(json, "pbrMetallicRoughness", member.name) : Member(json, member.name);
    if (info == nullptr) continue;
    material.images[member.slot] = pictures.Find(*info, member.isColor);
    material.params.placements[member.slot] = ReadPlacement(*info);
    if (member.strength != nullptr) material.params.*member.target = Number(*info, member.strength, 1.0F);
  }
}

AlphaMode ReadAlphaMode(const Json& material) {
  const std::string mode = Text(material, "alphaMode", "OPAQUE");
  if (mode == "BLEND") return AlphaMode::Blend;
  return mode == "MASK" ? AlphaMode::Mask : AlphaMode::Opaque;
}

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
  params.unlit = Extension(material, "KHR_materials_unlit") != nullptr;
  if (params.unlit) params.emissive = {};  // nothing but its colours
  return params;
}

}  // namespace

void ReadMaterials(const GltfDocument& document, bool withTextures, const WarningSink& warn, base::SceneData& scene) {
  Pictures pictures(document, warn, scene.images);
  for (const Json& json : Elements(document.Root(), "materials")) {
    MaterialData& material = scene.materials.emplace_back();
    material.params = ReadParams(json);
    if (!withTextures) continue;
    ReadTextures(json, pictures, material);
  }
}

}  // namespace qen::host
