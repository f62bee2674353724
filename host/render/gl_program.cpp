#include "host/render/gl_program.h"

#include <stdexcept>
#include <string>

namespace qen::host {
namespace {

constexpr GLsizei kLogSize = 2048;

void Compile(GLuint shader, const char* source) {
  glShaderSource(shader, 1, &source, nullptr);
  glCompileShader(shader);
  GLint done = GL_FALSE;
  glGetShaderiv(shader, GL_COMPILE_STATUS, &done);
  if (done == GL_TRUE) return;
  std::string log(kLogSize, '\0');
  GLsizei length = 0;
  glGetShaderInfoLog(shader, kLogSize, &length, log.data());
  log.resize(static_cast<std::size_t>(length));
  throw std::runtime_error("a shader does not compile: " + log);
}

void Link(GLuint program) {
  glLinkProgram(program);
  GLint done = GL_FALSE;
  glGetProgramiv(program, GL_LINK_STATUS, &done);
  if (done == GL_TRUE) return;
  std::string log(kLogSize, '\0');
  GLsizei length = 0;
  glGetProgramInfoLog(program, kLogSize, &length, log.data());
  log.resize(static_cast<std::size_t>(length));
  throw std::runtime_error("a shader program does not link: " + log);
}

}  // namespace

GlProgram::GlProgram(const char* vertexSource, const char* fragmentSource) {
  const GlVertexShader vertex;
  const GlFragmentShader fragment;
  Compile(vertex.Get(), vertexSource);
  Compile(fragment.Get(), fragmentSource);
  glAttachShader(program_.Get(), vertex.Get());
  glAttachShader(program_.Get(), fragment.Get());
  Link(program_.Get());
  glDetachShader(program_.Get(), vertex.Get());
  glDetachShader(program_.Get(), fragment.Get());
}

}  // namespace qen::host
