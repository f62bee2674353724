// Owners of OpenGL objects. They must go while their context is current.
#pragma once

#include <epoxy/gl.h>

#include <cstddef>
#include <utility>

namespace qen::host {

template <class Kind>
class GlObject {
 public:
  GlObject() : name_(Kind::Create()) {}
  ~GlObject() {
    if (name_ != 0) Kind::Delete(name_);
  }
  GlObject(GlObject&& other) noexcept : name_(std::exchange(other.name_, 0)) {}
  GlObject& operator=(GlObject&& other) noexcept {
    std::swap(name_, other.name_);
    return *this;
  }
  GlObject(const GlObject&) = delete;
  GlObject& operator=(const GlObject&) = delete;

  [[nodiscard]] GLuint Get() const { return name_; }

 private:
  GLuint name_;
};

namespace gl_kind {

// clang-format off
struct Buffer {
  static GLuint Create() { GLuint name = 0; glGenBuffers(1, &name); return name; }
  static void Delete(GLuint name) { glDeleteBuffers(1, &name); }
};
struct VertexArray {
  static GLuint Create() { GLuint name = 0; glGenVertexArrays(1, &name); return name; }
  static void Delete(GLuint name) { glDeleteVertexArrays(1, &name); }
};
struct Texture {
  static GLuint Create() { GLuint name = 0; glGenTextures(1, &name); return name; }
  static void Delete(GLuint name) { glDeleteTextures(1, &name); }
};
struct Sampler {
  static GLuint Create() { GLuint name = 0; glGenSamplers(1, &name); return name; }
  static void Delete(GLuint name) { glDeleteSamplers(1, &name); }
};
struct Renderbuffer {
  static GLuint Create() { GLuint name = 0; glGenRenderbuffers(1, &name); return name; }
  static void Delete(GLuint name) { glDeleteRenderbuffers(1, &name); }
};
struct Framebuffer {
  static GLuint Create() { GLuint name = 0; glGenFramebuffers(1, &name); return name; }
  static void Delete(GLuint name) { glDeleteFramebuffers(1, &name); }
};
struct VertexShader {
  static GLuint Create() { return glCreateShader(GL_VERTEX_SHADER); }
  static void Delete(GLuint name) { glDeleteShader(name); }
};
struct FragmentShader {
  static GLuint Create() { return glCreateShader(GL_FRAGMENT_SHADER); }
  static void Delete(GLuint name) { glDeleteShader(name); }
};
struct Program {
  static GLuint Create() { return glCreateProgram(); }
  static void Delete(GLuint name) { glDeleteProgram(name); }
};
// clang-format on

}  // namespace gl_kind

using GlBuffer = GlObject<gl_kind::Buffer>;
using GlVertexArray = GlObject<gl_kind::VertexArray>;
using GlTexture = GlObject<gl_kind::Texture>;
using GlSampler = GlObject<gl_kind::Sampler>;
using GlRenderbuffer = GlObject<gl_kind::Renderbuffer>;
using GlFramebuffer = GlObject<gl_kind::Framebuffer>;
using GlVertexShader = GlObject<gl_kind::VertexShader>;
using GlFragmentShader = GlObject<gl_kind::FragmentShader>;

// A place in the buffer that is bound, as OpenGL takes it.
inline const void* BufferOffset(std::size_t bytes) { return reinterpret_cast<const void*>(bytes); }

}  // namespace qen::host
