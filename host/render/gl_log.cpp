#include "host/render/gl_log.h"

#include <epoxy/gl.h>

#include <string>

namespace qen::host {
namespace {

void APIENTRY OnMessage(GLenum /*source*/, GLenum type, GLuint /*id*/, GLenum severity, GLsizei length,
                        const GLchar* message, const void* sink) {
  // Notifications and performance hints come by the hundred and are no faults.
  if (severity == GL_DEBUG_SEVERITY_NOTIFICATION || type == GL_DEBUG_TYPE_PERFORMANCE) return;
  if (type == GL_DEBUG_TYPE_OTHER) return;
  (*static_cast<const ErrorSink*>(sink))("OpenGL: " + std::string(message, static_cast<std::size_t>(length)));
}

bool IsDebugging() {
  GLint flags = 0;
  glGetIntegerv(GL_CONTEXT_FLAGS, &flags);
  const bool asked = (static_cast<GLuint>(flags) & GL_CONTEXT_FLAG_DEBUG_BIT) != 0;
  return asked && (epoxy_gl_version() >= 43 || epoxy_has_gl_extension("GL_KHR_debug"));
}

}  // namespace

DriverMessages::DriverMessages(const ErrorSink& sink) : on_(IsDebugging()) {
  if (!on_) return;
  glEnable(GL_DEBUG_OUTPUT);
  glEnable(GL_DEBUG_OUTPUT_SYNCHRONOUS);
  glDebugMessageCallback(&OnMessage, &sink);
}

DriverMessages::~DriverMessages() {
  if (on_) glDebugMessageCallback(nullptr, nullptr);
}

void ReportErrors(const ErrorSink& sink, unsigned& previous) {
  GLenum first = GL_NO_ERROR;
  // A lost context reports errors without end.
  for (int i = 0; i < 16; ++i) {
    const GLenum error = glGetError();
    if (error == GL_NO_ERROR) break;
    if (first == GL_NO_ERROR) first = error;
  }
  if (first != GL_NO_ERROR && first != previous) sink("OpenGL error " + std::to_string(first));
  if (first != GL_NO_ERROR) previous = first;
}

}  // namespace qen::host
