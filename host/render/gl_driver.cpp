#include "host/render/gl_driver.h"

#include <epoxy/gl.h>

#include <string_view>

namespace qen::host {

bool IsSoftwareDriver() {
  const auto* name = reinterpret_cast<const char*>(glGetString(GL_RENDERER));
  return name != nullptr && std::string_view(name).find("llvmpipe") != std::string_view::npos;
}

}  // namespace qen::host
