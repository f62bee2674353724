#include "host/render/mesh_program.h"

#include <string>

#include "host/render/light_shader.h"
#include "host/render/mesh_shader.h"
#include "host/render/surface_shader.h"

namespace qen::host {
namespace {

GlProgram MakeMeshProgram(std::size_t features) {
  std::string head = "#version 330 core\n";
  if ((features & MeshProgram::kMaps) != 0) head += "#define MAPS\n";
  if ((features & MeshProgram::kLamps) != 0) head += "#define LAMPS\n";
  const std::string vertex = head + kMeshVertexShader;
  const std::string fragment = head + kSurfaceShader + kLightShader + kMeshFragmentShader;
  return {vertex.c_str(), fragment.c_str()};
}

MeshProgram::Uniforms FindUniforms(const GlProgram& program) {
  const auto find = [&program](const char* name) { return program.Uniform(name); };
  return {find("uViewProjection"),
          find("uMirrored"),
          find("uBaseColor"),
          find("uEmissive"),
          find("uMetallic"),
          find("uRoughness"),
          find("uAlphaMode"),
          find("uAlphaCutoff"),
          find("uCoverage"),
          find("uUnlit"),
          find("uEye"),
          find("uToLight"),
          find("uLightColor"),
          find("uLit"),
          find("uUvX"),
          find("uUvY"),
          find("uUvSet"),
          find("uNormalScale"),
          find("uOcclusionStrength"),
          find("uAmbient"),
          find("uLampCount"),
          find("uLamps")};
}

}  // namespace

MeshProgram::MeshProgram(std::size_t features)
    : features_(features), program_(MakeMeshProgram(features)), at_(FindUniforms(program_)) {
  program_.Use();
  glUniform1i(program_.Uniform("uBaseMap"), kBaseUnit);
  glUniform1i(program_.Uniform("uEmissiveMap"), kEmissiveUnit);
  glUniform1i(program_.Uniform("uNormalMap"), kNormalUnit);
  glUniform1i(program_.Uniform("uSurfaceMap"), kSurfaceUnit);
  glUniform1i(program_.Uniform("uOcclusionMap"), kOcclusionUnit);
}

}  // namespace qen::host
