// The lights of a glTF file.
#pragma once

#include <optional>

#include "engine/light.h"
#include "host/scenes/gltf_document.h"

namespace qen::host {

// The light that a node carries; nothing where it has none, or one of an unknown type.
std::optional<Light> ReadLight(const GltfDocument& document, const Json& node);

// The "ambient" of the extras of the scene that is shown: three numbers, linear; nothing where there are none.
std::optional<Vec3> ReadAmbient(const GltfDocument& document);

}  // namespace qen::host
