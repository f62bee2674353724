// A shader program.
#pragma once

#include "host/render/gl_objects.h"

namespace qen::host {

class GlProgram {
 public:
  // Compiles and links; throws std::runtime_error with the driver's words when the sources are wrong.
  GlProgram(const char* vertexSource, const char* fragmentSource);

  void Use() const { glUseProgram(program_.Get()); }
  [[nodiscard]] GLint Uniform(const char* name) const { return glGetUniformLocation(program_.Get(), name); }

 private:
  GlObject<gl_kind::Program> program_;
};

}  // namespace qen::host
