// The programs that meshes are drawn with. Lighting is done in linear values; the frame buffer encodes.
//
// What few meshes need is in programs of their own, so that the others do not pay for it: MAPS are the textures of
// numbers, the places of textures and the second set of coordinates; LAMPS are the lights of scenes.
#pragma once

namespace qen::host {

inline constexpr const char* kMeshVertexShader = R"(
layout(location = 0) in vec3 aPosition;
layout(location = 1) in vec3 aNormal;
layout(location = 2) in vec4 aUv;  // both sets
layout(location = 3) in vec4 aColor;
layout(location = 4) in vec4 aWorldX;  // columns of the world matrix, by mesh
layout(location = 5) in vec4 aWorldY;
layout(location = 6) in vec4 aWorldZ;
uniform mat4 uViewProjection;
uniform bool uMirrored;
out vec3 vPosition;
out vec3 vNormal;
out vec4 vUv;
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

// Behind those of surfaces and lights.
inline constexpr const char* kMeshFragmentShader = R"(
uniform int uAlphaMode;      // 0 opaque, 1 mask, 2 blend
uniform float uAlphaCutoff;
uniform bool uCoverage;      // a cut-out's alpha becomes a share of the pixel's samples
uniform bool uLit;
uniform bool uUnlit;         // shows its own colours under any light
out vec4 oColor;

float Opacity(float alpha) {
  if (uAlphaMode == 0) return 1.0;
  if (uAlphaMode == 2) return alpha;
  if (!uCoverage) return step(uAlphaCutoff, alpha);
  return clamp((alpha - uAlphaCutoff) / max(fwidth(alpha), 1e-4) + 0.5, 0.0, 1.0);
}

void main() {
  vec4 base = BaseColor();
  float alpha = Opacity(base.a);
  if (uAlphaMode == 1 && alpha == 0.0) discard;
  oColor = vec4((uLit && !uUnlit ? Shade(SurfaceOf(base.rgb)) : base.rgb) + Emitted(), alpha);
}
)";

}  // namespace qen::host
