// One placed scene: its matrices and the animation of them.
#pragma once

#include <cstdint>
#include <vector>

#include "base/carried_nodes.h"
#include "base/pose.h"
#include "engine/anim_ctrl.h"
#include "engine/light.h"
#include "engine/scene.h"
#include "engine/scene_instance.h"

namespace qen::base {

// Registers itself with the scene it shows, which detaches it when it goes first.
class Instance final : public InstanceObject {
 public:
  // `lights` must outlive the instance.
  Instance(StringView name, SimpleScene& scene, const Matrix4x4& transform, bool animates, const LightList& lights);
  ~Instance() override;
  Instance(const Instance&) = delete;
  Instance& operator=(const Instance&) = delete;

  void Disable(bool disabled) override;
  void GetLOD(std::uint32_t level, SimpleSceneInstance*& instance, float& distance) override;

  // A light of the world it stands in, from now on.
  void AddLight(Light* light);

  // Moves the animations on and, when that changed the pose, the nodes that moved. Those of an instance that is not
  // shown, or disabled, wait until it is again.
  void Advance(double seconds, bool shown);

  void AddAnimation(std::uint32_t index, float frames);
  void Detach();  // the scene is gone: no nodes any more

 private:
  void PutAtRest();
  void TakeLights(const LightList& lights);
  void BeginMoving();
  void PoseNodes();
  void MoveNodes();
  void MoveLights();
  void PutNode(std::size_t node);
  [[nodiscard]] Matrix4x4 GlobalOf(std::size_t node) const;
  [[nodiscard]] Matrix4x4 Place(std::size_t node, const Matrix4x4& animated);
  [[nodiscard]] Matrix4x4 RestWorld(std::size_t node) const;

  SimpleScene::Data* scene_;  // null once detached
  SimpleSceneInstance placed_;
  AnimCtrl animCtrl_;
  bool disabled_ = false;
  bool moved_ = false;  // the animations have, and the nodes not yet

  // By node; empty until the first animation. What was written into the instance's matrices last is kept, to tell a
  // node that somebody else moved: it stays where it was put, and is carried along while animations run.
  std::vector<Pose> poses_;
  std::vector<Matrix4x4> globals_;
  std::vector<Matrix4x4> written_;
  CarriedNodes carried_;

  std::vector<Light> ownLights_;  // those of the scene, as they stand here
  LightList lights_;              // of the world, then its own; empty and not used where it has none of its own
};

}  // namespace qen::base
