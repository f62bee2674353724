// What the engine keeps of a loaded scene.
#pragma once

#include <array>
#include <deque>
#include <map>
#include <vector>

#include "base/node_names.h"
#include "base/pose.h"
#include "base/rest_poses.h"
#include "base/scene_looks.h"
#include "engine/light.h"
#include "engine/mesh.h"
#include "engine/scene.h"

namespace qen::base {

class Instance;

struct NodeLight {
  Light light;
  std::uint32_t node = 0;  // where it stands; no matter for ambient light
};

}  // namespace qen::base

namespace qen {

struct SimpleScene::Data {
  Data() = default;
  ~Data() { Clear(); }
  Data(const Data&) = delete;
  Data& operator=(const Data&) = delete;

  // A place in the world where nodes stand at rest: most of a widget's nodes stand at one.
  struct Place {
    Matrix4x4 transform;
    Matrix4x4 inverse;
  };

  // Takes over what a scene file holds. The scene is empty before.
  void Fill(const String& file, const base::SceneData& source, base::Context& context);

  // Lets go of the nodes, the renderer's objects, the animations and the instances.
  void Clear();

  [[nodiscard]] bool IsAtRest() const;  // nobody has moved a node

  base::Context* engine = nullptr;  // that the scene was loaded with
  std::deque<Place> places;
  std::vector<TMNode> nodes;
  std::vector<TMNode*> order;  // all nodes
  base::NodeNames names{nodes};
  base::RestPoses restPoses;
  base::SceneLooks looks;
  std::vector<Mesh> meshes;  // one a node that has a mesh, so that each can be textured by itself
  std::vector<SubMesh> subMeshes;
  std::deque<std::array<float, 4>> cameras;
  std::vector<base::NodeLight> lights;
  std::map<std::uint32_t, base::Animation> animations;  // by index
  std::vector<base::Instance*> instances;               // that show this scene
};

}  // namespace qen
