// Draws meshes.
#pragma once

#include <array>

#include "host/render/frame_plan.h"
#include "host/render/geometry_store.h"
#include "host/render/mesh_lights.h"
#include "host/render/mesh_program.h"
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

  // What a program of its own is set to.
  struct Present {
    std::uint32_t material = kNone;  // positions in the plan
    std::uint32_t light = kNone;
  };

  [[nodiscard]] static std::size_t ProgramFor(const MaterialParams& params, const MeshLights& lights);
  void SetMaterial(const MeshProgram& program, const MaterialParams& params, bool smoothCutout) const;
  void SetMaps(const MeshProgram& program, const MaterialParams& params) const;
  static void SetLight(const MeshProgram& program, const MeshLights& lights);

  const GeometryStore& geometry_;
  const TextureStore& textures_;
  std::array<MeshProgram, MeshProgram::kCount> programs_;  // by their features
  GlBuffer places_;

  const FramePlan* plan_ = nullptr;
  bool multisampled_ = false;
  std::size_t bound_ = MeshProgram::kCount;  // the program whose textures are bound
  std::array<Present, MeshProgram::kCount> present_;
};

}  // namespace qen::host
