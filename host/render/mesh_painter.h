// Draws meshes.
#pragma once

#include <array>

#include "base/draw_list.h"
#include "engine/material.h"
#include "host/render/geometry_store.h"
#include "host/render/mesh_lights.h"
#include "host/render/mesh_program.h"
#include "host/render/texture_store.h"

namespace qen::host {

class MeshPainter {
 public:
  MeshPainter(const GeometryStore& geometry, const TextureStore& textures);

  // The camera of what follows, its projection with OpenGL's depth.
  void SetCamera(const Matrix4x4& view, const Matrix4x4& viewProjection);

  // `multisampled`: cut-outs may have smooth edges.
  void Draw(const base::DrawItem& item, bool multisampled) const;

 private:
  [[nodiscard]] const MeshProgram& ProgramFor(const MaterialParams& params, const MeshLights& lights) const;
  void SetMaterial(const MeshProgram& program, const MaterialParams& params, bool smoothCutout) const;
  void SetMaps(const MeshProgram& program, const MaterialParams& params) const;
  void SetLight(const MeshProgram& program, const MeshLights& lights) const;
  void SetPlace(const MeshProgram& program, const Matrix4x4& world) const;

  const GeometryStore& geometry_;
  const TextureStore& textures_;
  std::array<MeshProgram, MeshProgram::kCount> programs_;  // by their features
};

}  // namespace qen::host
