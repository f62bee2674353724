#include "host/render/mesh_painter.h"

#include <array>
#include <utility>

#include "engine/texture.h"
#include "host/render/mesh_shader.h"

namespace qen::host {
namespace {

constexpr GLuint kBaseUnit = 0;
constexpr GLuint kEmissiveUnit = 1;

std::uint32_t TextureIn(const MaterialParams& params, TEXTURE_SLOT slot) {
  const Texture* texture = params.GetTexture(slot);
  return texture == nullptr ? 0 : texture->GetHandle();
}

}  // namespace

GlProgram MeshPainter::MakeProgram() { return {kMeshVertexShader, kMeshFragmentShader}; }

MeshPainter::MeshPainter(const GeometryStore& geometry, const TextureStore& textures)
    : geometry_(geometry), textures_(textures), at_{} {
  const auto find = [this](const char* name) { return program_.Uniform(name); };
  at_ = {find("uViewProjection"), find("uMirrored"),   find("uBaseColor"),   find("uEmissive"), find("uMetallic"),
         find("uRoughness"),      find("uAlphaMode"),  find("uAlphaCutoff"), find("uCoverage"), find("uEye"),
         find("uToLight"),        find("uLightColor"), find("uLit")};
  program_.Use();
  glUniform1i(find("uBaseMap"), kBaseUnit);
  glUniform1i(find("uEmissiveMap"), kEmissiveUnit);
}

void MeshPainter::Begin(const FramePlan& plan, bool multisampled) {
  plan_ = &plan;
  multisampled_ = multisampled;
  material_ = light_ = kNone;
  if (plan.places.empty()) return;
  glBindBuffer(GL_ARRAY_BUFFER, places_.Get());
  const auto bytes = static_cast<GLsizeiptr>(plan.places.size() * sizeof(MeshPlace));
  glBufferData(GL_ARRAY_BUFFER, bytes, plan.places.data(), GL_STREAM_DRAW);
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
}

void MeshPainter::SetLight(const MeshLight& light) const {
  glUniform1i(at_.lit, light.lit ? 1 : 0);
  if (!light.lit) return;
  glUniform3f(at_.toLight, light.toLight.x, light.toLight.y, light.toLight.z);
  glUniform3f(at_.lightColor, light.color.x, light.color.y, light.color.z);
}

void MeshPainter::Draw(const Batch& batch) {
  const MaterialParams& params = plan_->materials[batch.material];
  const bool smoothCutout = multisampled_ && params.alphaMode == AlphaMode::Mask;
  program_.Use();
  if (std::exchange(material_, batch.material) != batch.material) SetMaterial(params, smoothCutout);
  if (std::exchange(light_, batch.light) != batch.light) SetLight(plan_->lights[batch.light]);
  glUniform1i(at_.mirrored, batch.mirrored ? 1 : 0);
  glFrontFace(batch.mirrored ? GL_CW : GL_CCW);
  (params.doubleSided ? glDisable : glEnable)(GL_CULL_FACE);
  if (smoothCutout) glEnable(GL_SAMPLE_ALPHA_TO_COVERAGE);
  geometry_.Draw(batch.name, places_, batch.first, batch.count);
  if (smoothCutout) glDisable(GL_SAMPLE_ALPHA_TO_COVERAGE);
}

}  // namespace qen::host
