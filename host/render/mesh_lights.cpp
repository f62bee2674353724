#include "host/render/mesh_lights.h"

#include <algorithm>
#include <cmath>

namespace qen::host {
namespace {

std::array<float, 4> Packed(const Vec3& v, float w) { return {v.x, v.y, v.z, w}; }

// The cosine of the angle to a spot's axis, times the first and plus the second, is 1 where it is bright, 0 where dark.
std::array<float, 4> ConeOf(const Light& light) {
  if (light.type != Light::kSpot) return {0.0F, 1.0F, 0.0F, 0.0F};
  constexpr float kSharpest = 1e-3F;
  const float outer = std::cos(light.outerAngle);
  const float scale = 1.0F / std::max(std::cos(light.innerAngle) - outer, kSharpest);
  return {scale, -outer * scale, 0.0F, 0.0F};
}

MeshLights::Lamp ToLamp(const Light& light) {
  const bool isFar = light.type == Light::kDirectional;
  return {isFar ? Packed(-light.direction, 0.0F) : Packed(light.position, 1.0F),
          Packed(light.color, light.range > 0.0F ? 1.0F / light.range : 0.0F), Packed(light.direction, 0.0F),
          ConeOf(light)};
}

void AddLight(const Light& light, MeshLights& lights, bool& hasKey) {
  if (light.type < Light::kPoint || light.type > Light::kAmbient) return;
  lights.lit = true;
  if (light.type == Light::kAmbient) {
    lights.hasAmbient = true;
    lights.ambient = light.color;
  } else if (light.type == Light::kDirectional && !hasKey) {
    hasKey = true;
    lights.toKey = -light.direction;
    lights.toKey.Normalize();
    lights.keyColor = light.color;
  } else if (lights.lampCount < MeshLights::kMostLamps) {
    lights.lamps[lights.lampCount++] = ToLamp(light);
  }
}

}  // namespace

MeshLights GatherLights(const LightList* lights) {
  MeshLights gathered;
  if (lights == nullptr) return gathered;
  bool hasKey = false;
  for (const Light* light : *lights) {
    if (light != nullptr) AddLight(*light, gathered, hasKey);
  }
  if (gathered.hasAmbient) gathered.keyColor = {};
  return gathered;
}

}  // namespace qen::host
