#include "host/render/mesh_painter.h"

#include <algorithm>
#include <array>
#include <utility>

#include "engine/texture.h"

namespace qen::host {
namespace {

std::uint32_t TextureIn(const MaterialParams& params, TEXTURE_SLOT slot) {
  const Texture* texture = params.GetTexture(slot);
  return texture == nullptr ? 0 : texture->GetHandle();
}

bool NeedsMaps(const MaterialParams& params) {
  constexpr std::array kMaps{TEXTURE_SLOT_2, TEXTURE_SLOT_3, TEXTURE_SLOT_4};
  constexpr TexturePlacement kUsual;
  return std::ranges::any_of(kMaps, [&](TEXTURE_SLOT slot) { return params.GetTexture(slot) != nullptr; }) ||
         params.placements[TEXTURE_SLOT_0] != kUsual || params.placements[TEXTURE_SLOT_1] != kUsual;
}

}  // namespace

MeshPainter::MeshPainter(const GeometryStore& geometry, const TextureStore& textures)
    : geometry_(geometry),
      textures_(textures),
      programs_{MeshProgram(0), MeshProgram(1), MeshProgram(2), MeshProgram(3)} {}

void MeshPainter::Begin(const FramePlan& plan, bool multisampled) {
  plan_ = &plan;
  multisampled_ = multisampled;
  bound_ = MeshProgram::kCount;
  present_.fill({});
  if (plan.places.empty()) return;
  glBindBuffer(GL_ARRAY_BUFFER, places_.Get());
  const auto bytes = static_cast<GLsizeiptr>(plan.places.size() * sizeof(MeshPlace));
  glBufferData(GL_ARRAY_BUFFER, bytes, plan.places.data(), GL_STREAM_DRAW);
}

void MeshPainter::SetCamera(const Matrix4x4& view, const Matrix4x4& viewProjection) {
  const Vec3 eye = view.Inverse().GetTranslation();
  for (const MeshProgram& program : programs_) {
    program.Use();
    glUniformMatrix4fv(program.At().viewProjection, 1, GL_FALSE, &viewProjection.m[0][0]);
    glUniform3f(program.At().eye, eye.x, eye.y, eye.z);
  }
}

std::size_t MeshPainter::ProgramFor(const MaterialParams& params, const MeshLights& lights) {
  const bool hasLamps = lights.lampCount > 0 || lights.hasAmbient;
  return (NeedsMaps(params) ? MeshProgram::kMaps : 0) | (hasLamps ? MeshProgram::kLamps : 0);
}

void MeshPainter::SetMaterial(const MeshProgram& program, const MaterialParams& params, bool smoothCutout) const {
  const std::array<float, 4>& base = params.baseColor;
  glUniform4f(program.At().baseColor, base[0], base[1], base[2], base[3]);
  glUniform3f(program.At().emissive, params.emissive[0], params.emissive[1], params.emissive[2]);
  glUniform1f(program.At().metallic, params.metallic);
  glUniform1f(program.At().roughness, params.roughness);
  glUniform1i(program.At().alphaMode, static_cast<GLint>(params.alphaMode));
  glUniform1f(program.At().alphaCutoff, params.alphaCutoff);
  glUniform1i(program.At().coverage, smoothCutout ? 1 : 0);
  glUniform1i(program.At().unlit, params.unlit ? 1 : 0);
  textures_.Bind(TextureIn(params, TEXTURE_SLOT_1), MeshProgram::kBaseUnit, TextureStore::Filter::Repeat);
  textures_.Bind(TextureIn(params, TEXTURE_SLOT_0), MeshProgram::kEmissiveUnit, TextureStore::Filter::Repeat);
  if (program.HasMaps()) SetMaps(program, params);
}

void MeshPainter::SetMaps(const MeshProgram& program, const MaterialParams& params) const {
  constexpr GLsizei kSlots = TEXTURE_SLOT_COUNT;
  std::array<std::array<float, 3>, kSlots> x{};
  std::array<std::array<float, 3>, kSlots> y{};
  std::array<float, kSlots> set{};
  for (std::size_t i = 0; i < kSlots; ++i) {
    x[i] = params.placements[i].x;
    y[i] = params.placements[i].y;
    set[i] = static_cast<float>(params.placements[i].uvSet);
  }
  glUniform3fv(program.At().uvX, kSlots, x[0].data());
  glUniform3fv(program.At().uvY, kSlots, y[0].data());
  glUniform1fv(program.At().uvSet, kSlots, set.data());
  const bool hasNormals = TextureIn(params, TEXTURE_SLOT_2) != 0;
  glUniform1f(program.At().normalScale, hasNormals ? params.normalScale : 0.0F);
  glUniform1f(program.At().occlusionStrength, params.occlusionStrength);
  textures_.Bind(TextureIn(params, TEXTURE_SLOT_2), MeshProgram::kNormalUnit, TextureStore::Filter::Repeat);
  textures_.Bind(TextureIn(params, TEXTURE_SLOT_3), MeshProgram::kSurfaceUnit, TextureStore::Filter::Repeat);
  textures_.Bind(TextureIn(params, TEXTURE_SLOT_4), MeshProgram::kOcclusionUnit, TextureStore::Filter::Repeat);
}

void MeshPainter::SetLight(const MeshProgram& program, const MeshLights& lights) {
  glUniform1i(program.At().lit, lights.lit ? 1 : 0);
  if (!lights.lit) return;
  glUniform3f(program.At().toLight, lights.toKey.x, lights.toKey.y, lights.toKey.z);
  glUniform3f(program.At().lightColor, lights.keyColor.x, lights.keyColor.y, lights.keyColor.z);
  if (!program.HasLamps()) return;
  const Vec3& ambient = lights.ambient;
  glUniform4f(program.At().ambient, ambient.x, ambient.y, ambient.z, lights.hasAmbient ? 1.0F : 0.0F);
  const auto count = static_cast<GLsizei>(lights.lampCount);
  glUniform1i(program.At().lampCount, count);
  if (count > 0) glUniformMatrix4fv(program.At().lamps, count, GL_FALSE, lights.lamps[0].place.data());
}

void MeshPainter::Draw(const Batch& batch) {
  const MaterialParams& params = plan_->materials[batch.material];
  const MeshLights& lights = plan_->lights[batch.light];
  const bool smoothCutout = multisampled_ && params.alphaMode == AlphaMode::Mask;
  const std::size_t number = ProgramFor(params, lights);
  const MeshProgram& program = programs_[number];
  Present& present = present_[number];
  program.Use();
  // The programs have their textures in common.
  if (std::exchange(bound_, number) != number) present.material = kNone;
  if (std::exchange(present.material, batch.material) != batch.material) SetMaterial(program, params, smoothCutout);
  if (std::exchange(present.light, batch.light) != batch.light) SetLight(program, lights);
  glUniform1i(program.At().mirrored, batch.mirrored ? 1 : 0);
  glFrontFace(batch.mirrored ? GL_CW : GL_CCW);
  (params.doubleSided ? glDisable : glEnable)(GL_CULL_FACE);
  if (smoothCutout) glEnable(GL_SAMPLE_ALPHA_TO_COVERAGE);
  geometry_.Draw(batch.name, places_, batch.first, batch.count);
  if (smoothCutout) glDisable(GL_SAMPLE_ALPHA_TO_COVERAGE);
}

}  // namespace qen::host
