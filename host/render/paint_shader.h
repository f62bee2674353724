// The program that texts, quads and lines are drawn with.
#pragma once

namespace qen::host {

inline constexpr const char* kPaintVertexShader = R"(#version 330 core
layout(location = 0) in vec3 aPosition;
layout(location = 1) in vec2 aUv;
layout(location = 2) in vec4 aColor;
uniform mat4 uTransform;
out vec2 vUv;
out vec4 vColor;

vec3 Linear(vec3 encoded) {
  vec3 low = encoded / 12.92;
  vec3 high = pow((encoded + 0.055) / 1.055, vec3(2.4));
  return mix(high, low, lessThanEqual(encoded, vec3(0.04045)));
}

void main() {
  vUv = aUv;
  vColor = vec4(Linear(aColor.rgb), aColor.a);
  gl_Position = uTransform * vec4(aPosition, 1.0);
}
)";

// A distance field's edge is made one pixel wide whatever the size and tilt: its slope on screen tells the width, held
// between the least and the greatest that the texture's own stretching allows, because the slope vanishes along the
// middle of thin strokes. The smaller a text, the more samples a pixel takes, so that strokes thinner than a pixel stay
// whole.
//
// Colours are blended in linear values, where the half covered edges of light texts come out bolder and those of dark
// texts thinner than they were drawn; Weigh undoes most of it.
inline constexpr const char* kPaintFragmentShader = R"(#version 330 core
in vec2 vUv;
in vec4 vColor;
uniform sampler2D uTexture;
uniform int uUse;            // 0 colour, 1 coverage, 2 distance field
uniform float uReach;        // of a distance field, in texels
out vec4 oColor;

float Distance(vec2 uv) { return (texture(uTexture, uv).a - 0.5) * 2.0 * uReach; }

// The least and the greatest number of texels that a step of one pixel may cross.
vec2 Stretching(vec2 dx, vec2 dy) {
  float xx = dot(dx, dx);
  float yy = dot(dy, dy);
  float mean = 0.5 * (xx + yy);
  float apart = length(vec2(0.5 * (xx - yy), dot(dx, dy)));
  return sqrt(max(vec2(mean - apart, mean + apart), 1e-8));
}

float GlyphCoverage() {
  vec2 size = vec2(textureSize(uTexture, 0));
  vec2 dx = dFdx(vUv);
  vec2 dy = dFdy(vUv);
  vec2 texels = Stretching(dx * size, dy * size);
  float centre = Distance(vUv);
  float slope = clamp(length(vec2(dFdx(centre), dFdy(centre))), texels.x, texels.y);
  int count = clamp(int(ceil(texels.y / 1.5)), 1, 6);
  float part = 1.0 / float(count);
  float sum = 0.0;
  for (int y = 0; y < count; ++y) {
    for (int x = 0; x < count; ++x) {
      vec2 place = (vec2(x, y) + 0.5) * part - 0.5;
      float inside = Distance(vUv + place.x * dx + place.y * dy);
      sum += clamp(inside / (slope * part) + 0.5, 0.0, 1.0);
    }
  }
  return sum * part * part;
}

float Weigh(float coverage) {
  const float kBend = 1.8;
  float lightness = sqrt(dot(vColor.rgb, vec3(0.2126, 0.7152, 0.0722)));
  return mix(1.0 - pow(1.0 - coverage, kBend), pow(coverage, kBend), lightness);
}

void main() {
  if (uUse == 2) {
    oColor = vec4(vColor.rgb, vColor.a * Weigh(GlyphCoverage()));
  } else if (uUse == 1) {
    oColor = vec4(vColor.rgb, vColor.a * Weigh(texture(uTexture, vUv).a));
  } else {
    oColor = vColor * texture(uTexture, vUv);
  }
}
)";

}  // namespace qen::host
