// The part of the fragment shader that lights a surface.
//
// The key light and the surroundings add up to 1 on a rough surface that faces the light, so that a panel shows its
// picture in the picture's own colours. Surroundings are a studio: a bright upper half with a long lamp, a dim lower
// half, and a glow from where the light comes from, which gives metals something to mirror. Lamps add to that as they
// do in 3D tools, or to an even light that takes the studio's place.
#pragma once

namespace qen::host {

inline constexpr const char* kLightShader = R"(
uniform vec3 uToLight;
uniform vec3 uLightColor;

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

vec3 Highlight(Surface surface, vec3 toEye, vec3 reflectance, vec3 toLight, vec3 color) {
  vec3 halfway = normalize(toEye + toLight);
  float nl = max(dot(surface.normal, toLight), 0.0);
  float nv = max(dot(surface.normal, toEye), 1e-3);
  float nh = max(dot(surface.normal, halfway), 0.0);
  float a = max(surface.roughness * surface.roughness, 0.02);
  float spread = nh * nh * (a * a - 1.0) + 1.0;
  float distribution = a * a / (kPi * spread * spread);
  float k = (surface.roughness + 1.0) * (surface.roughness + 1.0) / 8.0;
  float visibility = 1.0 / (4.0 * (nl * (1.0 - k) + k) * (nv * (1.0 - k) + k));
  float grazing = pow(1.0 - max(dot(toEye, halfway), 0.0), 5.0);
  vec3 fresnel = reflectance + (1.0 - reflectance) * grazing;
  return color * fresnel * (distribution * visibility * nl);
}

#ifdef LAMPS

uniform vec4 uAmbient;   // even light from all sides; its last is 1 where it takes the studio's place, else 0
uniform int uLampCount;
uniform mat4 uLamps[8];  // place and 1, or the way towards it and 0; colour and 1 / range; a spot's way; its cone

vec3 Surroundings(vec3 studio) { return mix(studio, uAmbient.rgb, uAmbient.a); }

vec3 Lamps(Surface surface, vec3 toEye, vec3 reflectance) {
  vec3 sum = vec3(0.0);
  for (int i = 0; i < uLampCount; ++i) {
    mat4 lamp = uLamps[i];
    vec3 way = lamp[0].xyz - vPosition * lamp[0].w;
    float square = max(dot(way, way), 1e-6);
    vec3 toLamp = way * inversesqrt(square);
    float reach = square * lamp[1].w * lamp[1].w;
    float share = lamp[0].w == 0.0 ? 1.0 : clamp(1.0 - reach * reach, 0.0, 1.0) / square;
    float cone = smoothstep(0.0, 1.0, lamp[3].y - dot(toLamp, lamp[2].xyz) * lamp[3].x);
    vec3 color = lamp[1].rgb * (share * cone);
    vec3 diffuse = surface.base * ((1.0 - surface.metallic) * max(dot(surface.normal, toLamp), 0.0) / kPi);
    sum += color * diffuse + Highlight(surface, toEye, reflectance, toLamp, color);
  }
  return sum;
}

#else

vec3 Surroundings(vec3 studio) { return studio; }

vec3 Lamps(Surface surface, vec3 toEye, vec3 reflectance) { return vec3(0.0); }

#endif

vec3 Gloss(Surface surface, vec3 toEye, vec3 reflectance) {
  vec3 normal = surface.normal;
  float roughness = surface.roughness;
  float grazing = pow(1.0 - max(dot(normal, toEye), 0.0), 5.0);
  vec3 fresnel = reflectance + (max(vec3(1.0 - roughness), reflectance) - reflectance) * grazing;
  vec3 mirrored = Surroundings(Studio(reflect(-toEye, normal), roughness)) * fresnel * surface.occlusion;
  return mirrored + Highlight(surface, toEye, reflectance, uToLight, uLightColor);
}

vec3 Shade(Surface surface) {
  vec3 normal = surface.normal;
  vec3 toEye = normalize(uEye - vPosition);
  vec3 around = Surroundings(mix(kGround, kSky, normal.y * 0.5 + 0.5)) * surface.occlusion;
  float key = kKey * max((dot(normal, uToLight) + kWrap) / (1.0 + kWrap), 0.0);
  vec3 diffuse = surface.base * (1.0 - surface.metallic) * (around + uLightColor * key);

  vec3 reflectance = mix(vec3(0.04), surface.base, surface.metallic);
  // A fully rough surface that is no metal keeps the colours of its picture.
  float shine = mix(1.0 - surface.roughness * surface.roughness, 1.0, surface.metallic);
  vec3 lit = shine > 0.0 ? diffuse + Gloss(surface, toEye, reflectance) * shine : diffuse;
  return lit + Lamps(surface, toEye, reflectance);
}
)";

}  // namespace qen::host
