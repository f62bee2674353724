// What the engine keeps of a loaded scene.
#pragma once

#include <array>
#include <deque>
#include <map>
#include <memory>
#include <unordered_map>
#include <vector>

#include "base/pose.h"
#include "base/textures.h"
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

  // Takes over what a scene file holds. The scene is empty before.
  void Fill(const String& file, const base::SceneData& source, base::Context& context);

  // Lets go of the nodes, the renderer's objects, the animations and the instances.
  void Clear();

  // Where the node of that name is (the first of several); -1 when there is none.
  [[nodiscard]] std::int32_t Find(StringView name) const;

  base::Context* engine = nullptr;  // that the scene was loaded with
  std::vector<TMNode> nodes;
  std::vector<TMNode*> order;  // all nodes
  std::unordered_map<StringView, std::uint32_t> byName;
  std::vector<base::Pose> restPose;
  std::vector<Mesh> meshes;  // one a node that has a mesh, so that each can be textured by itself
  std::deque<std::array<float, 4>> cameras;
  std::vector<base::NodeLight> lights;
  std::vector<std::unique_ptr<base::TextureObject>> textures;
  std::vector<std::uint32_t> geometries;
  std::map<std::uint32_t, base::Animation> animations;  // by index
  std::vector<base::Instance*> instances;               // that show this scene
};

}  // namespace qen
