#include "host/render/mesh_painter.h"

#include <algorithm>
#include <array>

#include "engine/light.h"
#include "engine/mesh.h"
#include "engine/texture.h"
#include "host/render/mesh_shader.h"

namespace qen::host {
namespace {

constexpr GLuint kBaseUnit = 0;
constexpr GLuint kEmissiveUnit = 1;

Vec3 Row(const Matrix4x4& matrix, int i) { return {matrix.m[i][0], matrix.m[i][1], matrix.m[i][2]}; }

std::uint32_t TextureIn(const MaterialParams& params, TEXTURE_SLOT slot) {
  const Texture* texture = params.GetTexture(slot);
  return texture == nullptr ? 0 : texture->GetHandle();
}

const Light* FirstDirectional(const LightList* lights) {
  if (lights == nullptr) return nullptr;
  const auto found = std::ranges::find_if(
      *lights, [](const Light* light) { return light != nullptr && light->type == Light::kDirectional; });
  return found == lights->end() ? nullptr : *found;
}

}  // namespace

GlProgram MeshPainter::MakeProgram() { return {kMeshVertexShader, kMeshFragmentShader}; }

MeshPainter::MeshPainter(const GeometryStore& geometry, const TextureStore& textures)
    : geometry_(geometry), textures_(textures), at_{} {
  const auto find = [this](const char* name) { return program_.Uniform(name); };
  at_ = {find("uWorld"),    find("uViewProjection"), find("uNormalMatrix"), find("uBaseColor"),   find("uEmissive"),
         find("uMetallic"), find("uRoughness"),      find("uAlphaMode"),    find("uAlphaCutoff"), find("uCoverage"),
         find("uEye"),      find("uToLight"),        find("uLightColor"),   find("uLit")};
  program_.Use();
  glUniform1i(find("uBaseMap"), kBaseUnit);
  glUniform1i(find("uEmissiveMap"), kEmissiveUnit);
}

void MeshPainter::SetCamera(const Matrix4x4& view, const Matrix4x4& viewProjection) {
  const Vec3 eye = view.Inverse().GetTranslation();
  program_.Use();
  glUniformMatrix4fv(at_.viewProjection, 1, GL_FALSE, &viewProjection.m[0][0]);
  glUniform3f(at_.eye, eye.x, eye.y, eye.z);
}

void MeshPainter::SetMaterial(const MaterialParams& params, bool smoothCutout) const {
  const std::array<float, 4>& base = params.baseColor;
  glUniform4f(at_.baseColor, base[0], base[1], base[2], base[3]);
  glUniform3f(at_.emissive, params.emissive[0], params.emissive[1], params.emissive[2]);
  glUniform1f(at_.metallic, params.metallic);
  glUniform1f(at_.roughness, params.roughness);
  glUniform1i(at_.alphaMode, static_cast<GLint>(params.alphaMode));
  glUniform1f(at_.alphaCutoff, params.alphaCutoff);
  glUniform1i(at_.coverage, smoothCutout ? 1 : 0);
  textures_.Bind(TextureIn(params, TEXTURE_SLOT_1), kBaseUnit, TextureStore::Filter::Repeat);
  textures_.Bind(TextureIn(params, TEXTURE_SLOT_0), kEmissiveUnit, TextureStore::Filter::Repeat);
  (params.doubleSided ? glDisable : glEnable)(GL_CULL_FACE);
}

void MeshPainter::SetLight(const LightList* lights) const {
  const Light* light = FirstDirectional(lights);
  glUniform1i(at_.lit, light != nullptr ? 1 : 0);
  if (light == nullptr) return;
  Vec3 toLight = -light->direction;
  toLight.Normalize();
  glUniform3f(at_.toLight, toLight.x, toLight.y, toLight.z);
  glUniform3f(at_.lightColor, light->color.x, light->color.y, light->color.z);
}

void MeshPainter::SetPlace(const Matrix4x4& world) const {
  // The cofactors turn normals as the inverse's transpose does, and exist for flattened nodes too.
  std::array<Vec3, 3> normal{Cross(Row(world, 1), Row(world, 2)), Cross(Row(world, 2), Row(world, 0)),
                             Cross(Row(world, 0), Row(world, 1))};
  const bool mirrored = Dot(Row(world, 0), normal[0]) < 0.0F;
  if (mirrored) std::ranges::transform(normal, normal.begin(), [](const Vec3& row) { return -row; });
  glFrontFace(mirrored ? GL_CW : GL_CCW);
  glUniformMatrix4fv(at_.world, 1, GL_FALSE, &world.m[0][0]);
  glUniformMatrix3fv(at_.normalMatrix, 1, GL_FALSE, &normal[0].x);
}

void MeshPainter::Draw(const base::DrawItem& item, bool multisampled) const {
  const MaterialParams& params = item.entry.subMesh->GetMaterialParams();
  const bool smoothCutout = multisampled && params.alphaMode == AlphaMode::Mask;
  program_.Use();
  SetMaterial(params, smoothCutout);
  SetLight(item.entry.lights);
  SetPlace(item.entry.world != nullptr ? *item.entry.world : item.world);
  if (smoothCutout) glEnable(GL_SAMPLE_ALPHA_TO_COVERAGE);
  geometry_.Draw(item.entry.subMesh->geometry);
  if (smoothCutout) glDisable(GL_SAMPLE_ALPHA_TO_COVERAGE);
}

}  // namespace qen::host
