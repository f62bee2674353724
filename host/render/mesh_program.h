// One of the programs that meshes are drawn with.
#pragma once

#include <cstddef>

#include "host/render/gl_program.h"

namespace qen::host {

class MeshProgram {
 public:
  // What a program can do beside the usual; together they number the programs.
  static constexpr std::size_t kMaps = 1;
  static constexpr std::size_t kLamps = 2;
  static constexpr std::size_t kCount = 4;

  enum Unit : GLuint { kBaseUnit, kEmissiveUnit, kNormalUnit, kSurfaceUnit, kOcclusionUnit };

  // Places of uniforms; those that a program does not have are -1, which OpenGL ignores.
  struct Uniforms {
    GLint viewProjection, mirrored, baseColor, emissive, metallic, roughness, alphaMode, alphaCutoff, coverage, unlit,
        eye, toLight, lightColor, lit;
    GLint uvX, uvY, uvSet, normalScale, occlusionStrength;  // of maps
    GLint ambient, lampCount, lamps;                        // of lamps
  };

  // Throws std::runtime_error where the driver cannot make it.
  explicit MeshProgram(std::size_t features);

  void Use() const { program_.Use(); }
  [[nodiscard]] const Uniforms& At() const { return at_; }
  [[nodiscard]] bool HasMaps() const { return (features_ & kMaps) != 0; }
  [[nodiscard]] bool HasLamps() const { return (features_ & kLamps) != 0; }

 private:
  std::size_t features_;
  GlProgram program_;
  Uniforms at_;
};

}  // namespace qen::host
