// The materials of a glTF file and the pictures they use.
#pragma once

#include <functional>

#include "base/backends/scene_backend.h"
#include "host/scenes/gltf_document.h"

namespace qen::host {

// Receives a line about something that is left out.
using WarningSink = std::function<void(StringView line)>;

// Reads `scene`'s materials and, when asked, the pictures they use, each once. A picture that cannot be read is left
// out with a warning.
void ReadMaterials(const GltfDocument& document, bool withTextures, const WarningSink& warn, base::SceneData& scene);

}  // namespace qen::host
