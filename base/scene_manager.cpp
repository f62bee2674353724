#include "base/scene_manager.h"

#include <limits>

#include "base/context.h"
#include "base/record.h"

namespace qen::base {

SceneService::SceneService(Context& engine) : engine_(engine), time_(engine.clock.GetTime()) {}

bool SceneService::CreateScene(const String& scene, bool enabled) {
  Record("ISceneMng::CreateScene", scene, enabled);
  const auto [place, isNew] = scenes_.try_emplace(scene);
  if (isNew) place->second.disabled = !enabled;
  return isNew;
}

void SceneService::DestroyScene(const String& scene) {
  Record("ISceneMng::DestroyScene", scene);
  const auto found = scenes_.find(scene);
  if (found == scenes_.end()) return;
  for (const std::int32_t id : found->second.instances) instances_.erase(id);
  engine_.render.Forget(found->second.lights);
  scenes_.erase(found);
}

void SceneService::DisableScene(const String& scene, bool disabled) {
  Record("ISceneMng::DisableScene", scene, disabled);
  const auto found = scenes_.find(scene);
  if (found != scenes_.end()) found->second.disabled = disabled;
}

bool SceneService::AddSimpleScene(const String& name, SimpleScene* scene) {
  Record("ISceneMng::AddSimpleScene", name, Named{scene});
  return scene != nullptr && simpleScenes_.try_emplace(name, scene).second;
}

void SceneService::RemoveSimpleScene(const String& name) {
  Record("ISceneMng::RemoveSimpleScene", name);
  simpleScenes_.erase(name);
}

bool SceneService::AddLight(const String& scene, Light* light, const AttachDesc& attach) {
  Record("ISceneMng::AddLight", scene, attach.parent);
  const auto found = scenes_.find(scene);
  if (found == scenes_.end() || light == nullptr) return false;
  found->second.lights.push_back(light);
  for (const std::int32_t id : found->second.instances) instances_.at(id).instance->AddLight(light);
  return true;
}

std::int32_t SceneService::CreateInstance(const String& scene, const String& simpleScene, const Matrix4x4& transform,
                                          const InstanceDesc& desc, const AttachDesc& attach) {
  Record("ISceneMng::CreateInstance", scene, simpleScene, transform, attach.parent);
  const auto target = scenes_.find(scene);
  const auto source = simpleScenes_.find(simpleScene);
  if (target == scenes_.end() || source == simpleScenes_.end()) return -1;
  const std::int32_t id = NextId();
  Scene& home = target->second;
  home.instances.insert(id);
  instances_.emplace(id, Placed{&home, std::make_unique<Instance>(simpleScene, *source->second, transform,
                                                                  desc.animates, home.lights)});
  return id;
}

void SceneService::DestroyInstance(std::int32_t id) {
  Record("ISceneMng::DestroyInstance", id);
  const auto found = instances_.find(id);
  if (found == instances_.end()) return;
  found->second.scene->instances.erase(id);
  instances_.erase(found);
}

InstanceObject* SceneService::GetInstance(std::int32_t id) {
  const auto found = instances_.find(id);
  return found == instances_.end() ? nullptr : found->second.instance.get();
}

void SceneService::Forget(const SimpleScene& scene) {
  std::erase_if(simpleScenes_, [&scene](const auto& registered) { return registered.second == &scene; });
}

void SceneService::Animate() {
  const double now = engine_.clock.GetTime();
  const double seconds = now - time_;
  time_ = now;
  for (auto& [id, placed] : instances_) placed.instance->Advance(seconds, !placed.scene->disabled);
}

std::int32_t SceneService::NextId() {
  do {
    nextId_ = nextId_ == std::numeric_limits<std::int32_t>::max() ? 0 : nextId_ + 1;
  } while (instances_.contains(nextId_));
  return nextId_;
}

}  // namespace qen::base
