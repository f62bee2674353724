// The animations of a glTF file.
#pragma once

#include "base/backends/scene_backend.h"
#include "host/scenes/gltf_accessors.h"
#include "host/scenes/gltf_document.h"

namespace qen::host {

// The channels of all its animations together. Of several for the same property of a node the first counts.
base::AnimationData ReadAnimations(const GltfDocument& document, GltfAccessors& accessors);

}  // namespace qen::host
