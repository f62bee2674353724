// Draws meshes.
#pragma once

#include "host/render/frame_plan.h"
#include "host/render/geometry_store.h"
#include "host/render/gl_program.h"
#include "host/render/texture_store.h"

namespace qen::host {

class MeshPainter {
 public:
  MeshPainter(const GeometryStore& geometry, const TextureStore& textures);

  // The frame that follows, until the next one; the plan must stay. `multisampled`: cut-outs may have smooth edges.
  void Begin(const FramePlan& plan, bool multisampled);

  // The camera of what follows, its projection with OpenGL's depth.
  void SetCamera(const Matrix4x4& view, const Matrix4x4& viewProjection);

  void Draw(const Batch& batch);

 private:
  static constexpr std::uint32_t kNone = 0xFFFFFFFF;

  void SetMaterial(const MaterialParams& params, bool smoothCutout) const;
  void SetLight(const MeshLight& light) const;

  const GeometryStore& geometry_;
  const TextureStore& textures_;
  GlProgram program_{MakeProgram()};
  GlBuffer places_;
  struct Uniforms {
    GLint viewProjection, mirrored, baseColor, emissive, metallic, roughness, alphaMode, alphaCutoff, coverage, eye,
        toLight, lightColor, lit;
  } at_;

  const FramePlan* plan_ = nullptr;
  bool multisampled_ = false;
  std::uint32_t material_ = kNone;  // that is set, of the plan's
  std::uint32_t light_ = kNone;

  static GlProgram MakeProgram();
};

}  // namespace qen::host
