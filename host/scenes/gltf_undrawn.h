// What a glTF file uses that is passed over.
#pragma once

#include <vector>

#include "engine/types.h"
#include "host/scenes/gltf_document.h"

namespace qen::host {

// In a few words each: "skins", "morph targets", "the extension KHR_materials_clearcoat".
std::vector<String> FindUndrawn(const GltfDocument& document);

}  // namespace qen::host
