#include "engine/scene_instance.h"

#include "base/context.h"
#include "base/record.h"
#include "engine/camera.h"
#include "engine/mesh.h"
#include "engine/scene.h"
#include "engine/viewport.h"

namespace qen {

void SimpleSceneInstance::Render(Viewport* viewport, std::uint32_t pass, const LightList& lights) {
  base::Record("SimpleSceneInstance::Render", base::Named{scene}, pass);
  base::Context* context = base::CurrentContext();
  if (context == nullptr || scene == nullptr) return;
  const Camera* camera = viewport == nullptr ? nullptr : viewport->GetCamera();
  const LightList& kept = context->render.Keep(lights, ownLights);

  const std::vector<TMNode*>& nodes = scene->GetNodes();
  std::size_t drawn = 0;
  for (std::size_t i = 0; i < nodes.size() && i < nodeMatrices.size(); ++i) {
    Mesh* mesh = nodes[i]->mesh;
    if (mesh == nullptr) continue;
    if (drawn == drawMatrices.size()) drawMatrices.emplace_back();
    Matrix4x4& world = drawMatrices[drawn++];
    world = nodeMatrices[i] * transform;
    const float distance = camera == nullptr ? 0.0F : camera->plane.DistanceTo(world * mesh->GetAABB().center);
    for (SubMesh& subMesh : mesh->subMeshes) context->render.Add({&subMesh, &world, 1, distance, &kept});
  }
}

}  // namespace qen
