// The scene manager.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <set>
#include <unordered_map>

#include "base/instance.h"
#include "engine/scene_manager.h"

namespace qen::base {

struct Context;

class SceneService final : public ISceneMng {
 public:
  explicit SceneService(Context& engine);

  bool CreateScene(const String& scene, bool enabled) override;
  void DestroyScene(const String& scene) override;
  void DisableScene(const String& scene, bool disabled) override;
  bool AddSimpleScene(const String& name, SimpleScene* scene) override;
  void RemoveSimpleScene(const String& name) override;
  bool AddLight(const String& scene, Light* light, const AttachDesc& attach) override;
  std::int32_t CreateInstance(const String& scene, const String& simpleScene, const Matrix4x4& transform,
                              const InstanceDesc& desc, const AttachDesc& attach) override;
  void DestroyInstance(std::int32_t id) override;
  InstanceObject* GetInstance(std::int32_t id) override;

  void Forget(const SimpleScene& scene);  // it is about to go: its registrations end

  // Moves every instance on to the present time; the nodes of disabled ones stand still.
  void Animate();

 private:
  struct Scene {
    bool disabled = false;
    LightList lights;
    std::set<std::int32_t> instances;
  };

  struct Placed {
    Scene* scene;
    std::unique_ptr<Instance> instance;
  };

  std::int32_t NextId();

  Context& engine_;
  double time_;  // up to which everything is animated
  std::unordered_map<String, Scene> scenes_;
  std::unordered_map<String, SimpleScene*> simpleScenes_;  // not owned
  std::map<std::int32_t, Placed> instances_;
  std::int32_t nextId_ = 0;
};

}  // namespace qen::base
