// How the host's camera is set for a page.
#pragma once

namespace qen {

class Camera;
class SimpleScene;

void SetDefaultCamera(Camera& camera);

// Takes the projection from the scene's camera node, when it has one.
void SetSceneCamera(Camera& camera, const SimpleScene& scene);

}  // namespace qen
