#include "host/scenes/gltf_undrawn.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <string>

#include "base/utf.h"

namespace qen::host {
namespace {

bool HasSkins(const GltfDocument& document) {
  return std::ranges::any_of(Elements(document.Root(), "nodes"),
                             [](const Json& node) { return Member(node, "skin") != nullptr; });
}

template <class Test>
bool HasPrimitive(const GltfDocument& document, Test test) {
  return std::ranges::any_of(Elements(document.Root(), "meshes"), [&test](const Json& mesh) {
    return std::ranges::any_of(Elements(mesh, "primitives"), test);
  });
}

bool HasTargets(const Json& primitive) { return Member(primitive, "targets") != nullptr; }

bool HasNoTriangles(const Json& primitive) {
  constexpr std::size_t kFirstOfTriangles = 4;
  return Index(primitive, "mode").value_or(kFirstOfTriangles) < kFirstOfTriangles;
}

}  // namespace

std::vector<String> FindUndrawn(const GltfDocument& document) {
  std::vector<String> found;
  if (HasSkins(document)) found.emplace_back(u"skins");
  if (HasPrimitive(document, &HasTargets)) found.emplace_back(u"morph targets");
  if (HasPrimitive(document, &HasNoTriangles)) found.emplace_back(u"points or lines");
  for (const Json& name : Elements(document.Root(), "extensionsUsed")) {
    if (!name.is_string() || IsKnownExtension(name.get_ref<const std::string&>())) continue;
    found.push_back(u"the extension " + base::ToUtf16(name.get<std::string>()));
  }
  return found;
}

}  // namespace qen::host
