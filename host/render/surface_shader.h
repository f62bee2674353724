// The part of the fragment shader that tells what the surface is like.
#pragma once

namespace qen::host {

inline constexpr const char* kSurfaceShader = R"(
in vec3 vPosition;
in vec3 vNormal;
in vec4 vUv;
in vec4 vColor;
uniform vec3 uEye;
uniform sampler2D uBaseMap;
uniform sampler2D uEmissiveMap;
uniform vec4 uBaseColor;
uniform vec3 uEmissive;
uniform float uMetallic;
uniform float uRoughness;

struct Surface {
  vec3 base;
  vec3 normal;       // towards the eye's side
  float metallic;
  float roughness;
  float occlusion;   // the share of the surroundings that reaches it
};

#ifdef MAPS

uniform sampler2D uNormalMap;
uniform sampler2D uSurfaceMap;
uniform sampler2D uOcclusionMap;
uniform vec3 uUvX[5];        // by texture slot
uniform vec3 uUvY[5];
uniform float uUvSet[5];
uniform float uNormalScale;  // 0 without a map
uniform float uOcclusionStrength;

vec2 UvSet(int slot) { return mix(vUv.xy, vUv.zw, uUvSet[slot]); }

vec2 UvOf(int slot) {
  vec3 uv = vec3(UvSet(slot), 1.0);
  return vec2(dot(uUvX[slot], uv), dot(uUvY[slot], uv));
}

// Steep bumps are bent towards the eye, so that they mirror nothing that is behind the surface.
vec3 Bent(vec3 bump, vec3 normal) {
  vec3 toEye = normalize(uEye - vPosition);
  float facing = dot(normal, toEye);
  float least = sqrt(0.5 - 0.5 * sqrt(max(1.0 - facing * facing, 0.0)));
  float seen = dot(bump, toEye);
  if (seen >= least) return bump;
  return normalize(bump - toEye * seen) * sqrt(1.0 - least * least) + toEye * least;
}

// The map's axes follow the coordinates as the mesh has them: to where u grows, and against where v does.
vec3 Bumped(vec3 normal) {
  vec3 px = dFdx(vPosition), py = dFdy(vPosition);
  vec2 ux = dFdx(UvSet(2)), uy = dFdy(UvSet(2));
  float turn = sign(ux.x * uy.y - ux.y * uy.x);
  vec3 right = turn * (px * uy.y - py * ux.y);
  vec3 down = turn * (py * ux.x - px * uy.x);
  right -= normal * dot(normal, right);
  vec3 up = cross(normal, right);
  if (dot(up, down) > 0.0) up = -up;
  vec3 bump = (texture(uNormalMap, UvOf(2)).xyz * 2.0 - 1.0) * vec3(uNormalScale, uNormalScale, 1.0);
  vec3 sideways = (right * bump.x + up * bump.y) * inversesqrt(max(dot(right, right), 1e-30));
  return Bent(normalize(sideways + normal * max(bump.z, 1e-3)), normal);
}

Surface SurfaceOf(vec3 base) {
  vec3 surface = texture(uSurfaceMap, UvOf(3)).rgb;
  float occlusion = 1.0 + uOcclusionStrength * (texture(uOcclusionMap, UvOf(4)).r - 1.0);
  vec3 normal = Bumped(normalize(gl_FrontFacing ? vNormal : -vNormal));
  return Surface(base, normal, uMetallic * surface.b, uRoughness * surface.g, occlusion);
}

#else

vec2 UvOf(int slot) { return vUv.xy; }

Surface SurfaceOf(vec3 base) {
  return Surface(base, normalize(gl_FrontFacing ? vNormal : -vNormal), uMetallic, uRoughness, 1.0);
}

#endif

vec4 BaseColor() { return uBaseColor * texture(uBaseMap, UvOf(1)) * vColor; }

vec3 Emitted() { return uEmissive * texture(uEmissiveMap, UvOf(0)).rgb; }
)";

}  // namespace qen::host
