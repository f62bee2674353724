#include "host/render/mesh_painter.h"

#include <algorithm>
#include <array>

#include "engine/mesh.h"
#include "engine/texture.h"

namespace qen::host {
namespace {

Vec3 Row(const Matrix4x4& matrix, int i) { return {matrix.m[i][0], matrix.m[i][1], matrix.m[i][2]}; }

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

void MeshPainter::SetCamera(const Matrix4x4& view, const Matrix4x4& viewProjection) {
  const Vec3 eye = view.Inverse().GetTranslation();
  for (const MeshProgram& program : programs_) {
    program.Use();
    glUniformMatrix4fv(program.At().viewProjection, 1, GL_FALSE, &viewProjection.m[0][0]);
    glUniform3f(program.At().eye, eye.x, eye.y, eye.z);
  }
}

const MeshProgram& MeshPainter::ProgramFor(const MaterialParams& params, const MeshLights& lights) const {
  const bool hasLamps = lights.lampCount > 0 || lights.ambient != nullptr;
  return programs_[(NeedsMaps(params) ? MeshProgram::kMaps : 0) | (hasLamps ? MeshProgram::kLamps : 0)];
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
  (params.doubleSided ? glDisable : glEnable)(GL_CULL_FACE);
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

void MeshPainter::SetLight(const MeshProgram& program, const MeshLights& lights) const {
  glUniform1i(program.At().lit, lights.lit ? 1 : 0);
  if (!lights.lit) return;
  glUniform3f(program.At().toLight, lights.toKey.x, lights.toKey.y, lights.toKey.z);
  glUniform3f(program.At().lightColor, lights.keyColor.x, lights.keyColor.y, lights.keyColor.z);
  if (!program.HasLamps()) return;
  const Vec3 ambient = lights.ambient == nullptr ? Vec3{} : lights.ambient->color;
  glUniform4f(program.At().ambient, ambient.x, ambient.y, ambient.z, lights.ambient == nullptr ? 0.0F : 1.0F);
  const auto count = static_cast<GLsizei>(lights.lampCount);
  glUniform1i(program.At().lampCount, count);
  if (count > 0) glUniformMatrix4fv(program.At().lamps, count, GL_FALSE, lights.lamps[0].place.data());
}

void MeshPainter::SetPlace(const MeshProgram& program, const Matrix4x4& world) const {
  // The cofactors turn normals as the inverse's transpose does, and exist for flattened nodes too.
  std::array<Vec3, 3> normal{Cross(Row(world, 1), Row(world, 2)), Cross(Row(world, 2), Row(world, 0)),
                             Cross(Row(world, 0), Row(world, 1))};
  const bool mirrored = Dot(Row(world, 0), normal[0]) < 0.0F;
  if (mirrored) std::ranges::transform(normal, normal.begin(), [](const Vec3& row) { return -row; });
  glFrontFace(mirrored ? GL_CW : GL_CCW);
  glUniformMatrix4fv(program.At().world, 1, GL_FALSE, &world.m[0][0]);
  glUniformMatrix3fv(program.At().normalMatrix, 1, GL_FALSE, &normal[0].x);
}

void MeshPainter::Draw(const base::DrawItem& item, bool multisampled) const {
  const MaterialParams& params = item.entry.subMesh->GetMaterialParams();
  const bool smoothCutout = multisampled && params.alphaMode == AlphaMode::Mask;
  const MeshLights lights = GatherLights(item.entry.lights);
  const MeshProgram& program = ProgramFor(params, lights);
  program.Use();
  SetMaterial(program, params, smoothCutout);
  SetLight(program, lights);
  SetPlace(program, item.entry.world != nullptr ? *item.entry.world : item.world);
  if (smoothCutout) glEnable(GL_SAMPLE_ALPHA_TO_COVERAGE);
  geometry_.Draw(item.entry.subMesh->geometry);
  if (smoothCutout) glDisable(GL_SAMPLE_ALPHA_TO_COVERAGE);
}

}  // namespace qen::host
