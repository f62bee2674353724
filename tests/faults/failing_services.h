// Services of the engine that pass everything on, but for the calls that are to fail, and keep count of what they gave.
#pragma once

#include <map>
#include <set>

#include "engine/font.h"
#include "engine/material.h"
#include "engine/scene_instance.h"
#include "engine/scene_manager.h"
#include "engine/sound.h"
#include "engine/texture.h"
#include "tests/faults/fault_plan.h"

namespace qen::test::failing {

// What GetInstance gave last.
struct PlacedInstance final : Faulty<InstanceObject> {
  using Faulty::Faulty;
  void Disable(bool disabled) override { real->Disable(disabled); }
  void GetLOD(std::uint32_t level, SimpleSceneInstance*& instance, float& distance) override {
    real->GetLOD(level, instance, distance);
    if (plan.Fails("InstanceObject::GetLOD")) instance = nullptr;
  }
};

struct Scenes final : Faulty<ISceneMng> {
  using Faulty::Faulty;
  bool CreateScene(const String& scene, bool enabled) override {
    if (plan.Fails("ISceneMng::CreateScene") || !real->CreateScene(scene, enabled)) return false;
    open.insert(scene);
    return true;
  }
  void DestroyScene(const String& scene) override {
    open.erase(scene);
    std::erase_if(instances, [&scene](const auto& instance) { return instance.second == scene; });
    real->DestroyScene(scene);
  }
  void DisableScene(const String& scene, bool disabled) override { real->DisableScene(scene, disabled); }
  bool AddSimpleScene(const String& name, SimpleScene* scene) override {
    if (plan.Fails("ISceneMng::AddSimpleScene") || !real->AddSimpleScene(name, scene)) return false;
    registered.insert(name);
    return true;
  }
  void RemoveSimpleScene(const String& name) override {
    registered.erase(name);
    real->RemoveSimpleScene(name);
  }
  bool AddLight(const String& scene, Light* light, const AttachDesc& attach) override {
    return !plan.Fails("ISceneMng::AddLight") && real->AddLight(scene, light, attach);
  }
  std::int32_t CreateInstance(const String& scene, const String& simpleScene, const Matrix4x4& transform,
                              const InstanceDesc& desc, const AttachDesc& attach) override {
    if (plan.Fails("ISceneMng::CreateInstance")) return -1;
    InstanceDesc wanted = desc;
    if (plan.Fails("ISceneMng::CreateInstance, not animated")) wanted.animates = false;
    const std::int32_t id = real->CreateInstance(scene, simpleScene, transform, wanted, attach);
    if (id >= 0) instances[id] = scene;
    return id;
  }
  void DestroyInstance(std::int32_t id) override {
    instances.erase(id);
    real->DestroyInstance(id);
  }
  InstanceObject* GetInstance(std::int32_t id) override {
    placed.real = real->GetInstance(id);
    return plan.Fails("ISceneMng::GetInstance") || placed.real == nullptr ? nullptr : &placed;
  }
  PlacedInstance placed{plan};
  std::set<String> open;
  std::set<String> registered;
  std::map<std::int32_t, String> instances;  // and their scenes
};

struct Sounds final : Faulty<ISound> {
  using Faulty::Faulty;
  SoundHandle CreateSound(const Char* file, const SoundDesc& desc, std::int32_t kind) override {
    const SoundHandle sound = plan.Fails("ISound::CreateSound") ? 0 : real->CreateSound(file, desc, kind);
    if (sound != 0) made.insert(sound);
    return sound;
  }
  void Play(SoundHandle sound) override { real->Play(sound); }
  void ReleaseSound(SoundHandle sound) override {
    made.erase(sound);
    real->ReleaseSound(sound);
  }
  std::set<SoundHandle> made;
};

// Counts what a manager gives out and gets back.
template <class Manager>
struct Counted : Faulty<Manager> {
  using Faulty<Manager>::Faulty;
  void Destroy(Resource* resource) override {
    if (const auto found = used.find(resource); found != used.end()) used.erase(found);
    this->real->Destroy(resource);
  }
  template <class T>
  T* Give(T* resource) {
    if (resource != nullptr) used.insert(resource);
    return resource;
  }
  std::multiset<const Resource*> used;
};

struct Fonts final : Counted<FontManager> {
  using Counted::Counted;
  Font* CreateEx(const Char* face, std::int32_t height, std::int32_t width, std::int32_t weight, bool italic,
                 std::int32_t quality, const String& group) override {
    if (plan.Fails("FontManager::CreateEx")) return nullptr;
    return Give(real->CreateEx(face, height, width, weight, italic, quality, group));
  }
};

struct Textures final : Counted<TextureManager> {
  using Counted::Counted;
  Texture* Load(const String& file, const String& group, std::int32_t mipLevels, std::uint32_t flags) override {
    return plan.Fails("TextureManager::Load") ? nullptr : Give(real->Load(file, group, mipLevels, flags));
  }
};

struct Materials final : Counted<MaterialManager> {
  using Counted::Counted;
  Material* Create(const String& name, const String& group) override {
    return plan.Fails("MaterialManager::Create") ? nullptr : Give(real->Create(name, group));
  }
  Material* GetByName(const String& name, const String& group) override {
    return plan.Fails("MaterialManager::GetByName") ? nullptr : Give(real->GetByName(name, group));
  }
};

}  // namespace qen::test::failing
