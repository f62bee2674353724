// Draws meshes.
#pragma once

#include "base/draw_list.h"
#include "engine/material.h"
#include "host/render/geometry_store.h"
#include "host/render/gl_program.h"
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
  void SetMaterial(const MaterialParams& params, bool smoothCutout) const;
  void SetLight(const LightList* lights) const;
  void SetPlace(const Matrix4x4& world) const;

  const GeometryStore& geometry_;
  const TextureStore& textures_;
  GlProgram program_{MakeProgram()};
  struct Uniforms {
    GLint world, viewProjection, normalMatrix, baseColor, emissive, metallic, roughness, alphaMode, alphaCutoff,
        coverage, eye, toLight, lightColor, lit;
  } at_;

  static GlProgram MakeProgram();
};

}  // namespace qen::host
