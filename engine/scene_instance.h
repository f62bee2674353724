// A scene placed into the world.
#pragma once

#include <cstdint>
#include <deque>
#include <vector>

#include "engine/matrix.h"
#include "engine/types.h"

namespace qen {

class AnimCtrl;
class SimpleScene;
class SubMesh;
class Viewport;
struct Light;

using LightList = std::vector<Light*>;

// One sub-mesh to draw, as the renderer takes it.
struct RenderEntry {
  SubMesh* subMesh = nullptr;
  const Matrix4x4* world = nullptr;
  std::uint32_t count = 0;
  float distance = 0.0F;              // from the camera's plane, for sorting
  const LightList* lights = nullptr;  // filled in by the engine
};

class QEN_API SimpleSceneInstance {
 public:
  AnimCtrl* animCtrl = nullptr;  // owned by the scene manager; null when the scene cannot be animated

  // World matrices, one a node in node order. Follow animations; whoever writes one moves that node (until the next
  // animation does).
  std::vector<Matrix4x4> nodeMatrices;

  // Storage for drawing: an entry a sub-mesh and a matrix a node with a mesh, in drawing order. Whoever draws adds at
  // the end what is not there yet, and nothing is taken away: entries that were submitted stay where they are.
  std::deque<RenderEntry> entries;
  std::deque<Matrix4x4> drawMatrices;
  const LightList* sceneLights = nullptr;  // of the scene that it stands in, for its entries

  [[nodiscard]] const Matrix4x4& GetTM() const { return transform; }

  // Draws all its meshes with the given lights and its own. `pass` 2: interface.
  void Render(Viewport* viewport, std::uint32_t pass, const LightList& lights);

  Matrix4x4 transform = Matrix4x4::Identity;  // of the whole instance
  SimpleScene* scene = nullptr;               // what it shows, not owned; null when that is gone
  LightList ownLights;                        // of that scene as they stand here; owned by the engine
};

// What the scene manager keeps for an instance id.
class InstanceBase {
 public:
  virtual ~InstanceBase() = default;
  // The nodes of a disabled instance stand still. Its animations run on all the same, and end: commands wait for that.
  // One that is enabled, be it so already, begins from its rest pose: animations that have ended leave none behind.
  virtual void Disable(bool disabled) = 0;
};

class InstanceObject : public InstanceBase {
 public:
  // Gives the instance's scene at a level of detail (0 the finest) and the distance up to which it is used. Sets null
  // for a level that does not exist.
  virtual void GetLOD(std::uint32_t level, SimpleSceneInstance*& instance, float& distance) = 0;
};

}  // namespace qen
