#include "host/scenes/gltf_lights.h"

#include <algorithm>
#include <array>
#include <nlohmann/json.hpp>
#include <numbers>
#include <string>
#include <string_view>

namespace qen::host {
namespace {

constexpr float kLumensPerWatt = 683.0F;  // files tell what the eye sees, 3D tools the power

struct LightType {
  std::string_view name;
  std::uint32_t type;
};
constexpr std::array kLightTypes{LightType{"point", Light::kPoint}, LightType{"spot", Light::kSpot},
                                 LightType{"directional", Light::kDirectional}};

const Json& LightAt(const GltfDocument& document, std::size_t index) {
  const Json* extension = Member(document.Root(), "extensions", "KHR_lights_punctual");
  static const Json kNone = Json::array();
  const Json& lights = extension == nullptr ? kNone : Elements(*extension, "lights");
  if (index >= lights.size()) throw GltfError("there is no light " + std::to_string(index));
  return lights[index];
}

}  // namespace

std::optional<Light> ReadLight(const GltfDocument& document, const Json& node) {
  const Json* extension = Member(node, "extensions", "KHR_lights_punctual");
  if (extension == nullptr) return std::nullopt;
  const Json& json = LightAt(document, RequiredIndex(*extension, "light"));
  const auto* const type = std::ranges::find(kLightTypes, Text(json, "type", ""), &LightType::name);
  if (type == kLightTypes.end()) return std::nullopt;
  std::array<float, 3> color{1.0F, 1.0F, 1.0F};
  ReadNumbers(json, "color", color);
  Light light;
  light.type = type->type;
  light.color = Vec3{color[0], color[1], color[2]} * (Number(json, "intensity", 1.0F) / kLumensPerWatt);
  light.range = std::max(Number(json, "range", 0.0F), 0.0F);
  if (const Json* spot = Member(json, "spot")) {
    constexpr float kWidest = std::numbers::pi_v<float> / 2.0F;
    light.outerAngle = std::clamp(Number(*spot, "outerConeAngle", light.outerAngle), 0.0F, kWidest);
    light.innerAngle = std::clamp(Number(*spot, "innerConeAngle", 0.0F), 0.0F, light.outerAngle);
  }
  return light;
}

std::optional<Vec3> ReadAmbient(const GltfDocument& document) {
  const auto index = Index(document.Root(), "scene");
  if (!index && Elements(document.Root(), "scenes").empty()) return std::nullopt;
  const Json* extras = Member(document.Item("scenes", index.value_or(0)), "extras");
  if (extras == nullptr || !extras->is_object() || Member(*extras, "ambient") == nullptr) return std::nullopt;
  std::array<float, 3> color{};
  ReadNumbers(*extras, "ambient", color);
  return Vec3{color[0], color[1], color[2]};
}

}  // namespace qen::host
