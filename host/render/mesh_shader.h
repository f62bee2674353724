// The program that meshes are drawn with. Lighting is done in linear values; the frame buffer encodes.
//
// The key light and the surroundings add up to 1 on a rough surface that faces the light, so that a panel shows its
// picture in the picture's own colours. Surroundings are a studio: a bright upper half with a long lamp, a dim lower
// half, and a glow from where the light comes from, which gives metals something to mirror.
#pragma once

namespace qen::host {

inline constexpr const char* kMeshVertexShader = R"(#version 330 core
layout(location = 0) in vec3 aPosition;
layout(location = 1) in vec3 aNormal;
layout(location = 2) in vec2 aUv;
layout(location = 3) in vec4 aColor;
layout(location = 4) in vec4 aWorldX;  // columns of the world matrix, by mesh
layout(location = 5) in vec4 aWorldY;
layout(location = 6) in vec4 aWorldZ;
uniform mat4 uViewProjection;
uniform bool uMirrored;
out vec3 vPosition;
out vec3 vNormal;
out vec2 vUv;
out vec4 vColor;

void main() {
  vec4 position = vec4(aPosition, 1.0);
  vPosition = vec3(dot(position, aWorldX), dot(position, aWorldY), dot(position, aWorldZ));
  // The cofactors turn normals as the inverse's transpose does, and exist for flattened nodes too.
  vec3 x = vec3(aWorldX.x, aWorldY.x, aWorldZ.x);
  vec3 y = vec3(aWorldX.y, aWorldY.y, aWorldZ.y);
  vec3 z = vec3(aWorldX.z, aWorldY.z, aWorldZ.z);
  vNormal = mat3(cross(y, z), cross(z, x), cross(x, y)) * (uMirrored ? -aNormal : aNormal);
  vUv = aUv;
  vColor = aColor;
  gl_Position = uViewProjection * vec4(vPosition, 1.0);
}
)";

inline constexpr const char* kMeshFragmentShader = R"(#version 330 core
in vec3 vPosition;
in vec3 vNormal;
in vec2 vUv;
in vec4 vColor;
uniform sampler2D uBaseMap;
uniform sampler2D uEmissiveMap;
uniform vec4 uBaseColor;
uniform vec3 uEmissive;
uniform float uMetallic;
uniform float uRoughness;
uniform int uAlphaMode;      // 0 opaque, 1 mask, 2 blend
uniform float uAlphaCutoff;
uniform bool uCoverage;      // a cut-out's alpha becomes a share of the pixel's samples
uniform vec3 uEye;
uniform vec3 uToLight;
uniform vec3 uLightColor;
uniform bool uLit;
out vec4 oColor;

const vec3 kSky = vec3(0.46, 0.48, 0.52);
const vec3 kGround = vec3(0.24, 0.22, 0.18);
const float kKey = 0.65;
const float kWrap = 0.25;
const float kPi = 3.14159265;

vec3 Studio(vec3 direction, float roughness) {
  float softness = 0.1 + roughness;
  vec3 room = mix(kGround * 0.5, kSky * 1.3, smoothstep(-softness, softness, direction.y + 0.1));
  float lamp = smoothstep(0.25 - softness, 0.3 + softness, direction.y) *
               (1.0 - smoothstep(0.7 - softness, 0.75 + softness, direction.y));
  float glow = pow(max(dot(direction, uToLight), 0.0), mix(12.0, 1.5, roughness));
  return room + uLightColor * (kKey * (glow + 0.8 * lamp));
}

vec3 Highlight(vec3 normal, vec3 toEye, vec3 reflectance, float roughness) {
  vec3 halfway = normalize(toEye + uToLight);
  float nl = max(dot(normal, uToLight), 0.0);
  float nv = max(dot(normal, toEye), 1e-3);
  float nh = max(dot(normal, halfway), 0.0);
  float a = max(roughness * roughness, 0.02);
  float spread = nh * nh * (a * a - 1.0) + 1.0;
  float distribution = a * a / (kPi * spread * spread);
  float k = (roughness + 1.0) * (roughness + 1.0) / 8.0;
  float visibility = 1.0 / (4.0 * (nl * (1.0 - k) + k) * (nv * (1.0 - k) + k));
  float grazing = pow(1.0 - max(dot(toEye, halfway), 0.0), 5.0);
  vec3 fresnel = reflectance + (1.0 - reflectance) * grazing;
  return uLightColor * fresnel * (distribution * visibility * nl);
}

vec3 Shade(vec3 base) {
  vec3 normal = normalize(gl_FrontFacing ? vNormal : -vNormal);
  vec3 toEye = normalize(uEye - vPosition);
  vec3 surroundings = mix(kGround, kSky, normal.y * 0.5 + 0.5);
  float key = kKey * max((dot(normal, uToLight) + kWrap) / (1.0 + kWrap), 0.0);
  vec3 diffuse = base * (1.0 - uMetallic) * (surroundings + uLightColor * key);

  vec3 reflectance = mix(vec3(0.04), base, uMetallic);
  float grazing = pow(1.0 - max(dot(normal, toEye), 0.0), 5.0);
  vec3 fresnel = reflectance + (max(vec3(1.0 - uRoughness), reflectance) - reflectance) * grazing;
  vec3 mirrored = Studio(reflect(-toEye, normal), uRoughness) * fresnel;
  vec3 gloss = mirrored + Highlight(normal, toEye, reflectance, uRoughness);
  // A fully rough surface that is no metal keeps the colours of its picture.
  return diffuse + gloss * mix(1.0 - uRoughness * uRoughness, 1.0, uMetallic);
}

float Opacity(float alpha) {
  if (uAlphaMode == 0) return 1.0;
  if (uAlphaMode == 2) return alpha;
  if (!uCoverage) return step(uAlphaCutoff, alpha);
  return clamp((alpha - uAlphaCutoff) / max(fwidth(alpha), 1e-4) + 0.5, 0.0, 1.0);
}

void main() {
  vec4 base = uBaseColor * texture(uBaseMap, vUv) * vColor;
  float alpha = Opacity(base.a);
  if (uAlphaMode == 1 && alpha == 0.0) discard;
  vec3 emitted = uEmissive * texture(uEmissiveMap, vUv).rgb;
  oColor = vec4((uLit ? Shade(base.rgb) : base.rgb) + emitted, alpha);
}
)";

}  // namespace qen::host
