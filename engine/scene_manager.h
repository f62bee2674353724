// The scenes of the world, by name.
#pragma once

#include <cstdint>

#include "engine/matrix.h"
#include "engine/types.h"

namespace qen {

class InstanceObject;
class SimpleScene;
struct Light;

// Where something is attached; the defaults attach it to nothing.
struct AttachDesc {
  String parent = u"none";
  std::int32_t node = 0;
  bool inheritScale = false;
};

// How an instance is treated; the defaults suit an interface page.
struct InstanceDesc {
  float fadeDistance = 0.0F;
  bool castsShadow = false;
  std::int32_t layer = 2;
  std::int32_t pass = 2;
  bool isStatic = false;
  float detail = 1.0F;
  bool collides = false;
  bool animates = true;
  bool lit = true;
  bool ownMaterials = true;
  bool streamed = false;
  bool keepMatrices = true;
  bool culled = false;
};

// Names are exact. Operations on names and ids that do not exist do nothing, or fail with what is said.
class ISceneMng {
 public:
  virtual ~ISceneMng() = default;

  virtual bool CreateScene(const String& scene, bool enabled) = 0;    // false when the name is taken
  virtual void DestroyScene(const String& scene) = 0;                 // with its instances, without its lights
  virtual void DisableScene(const String& scene, bool disabled) = 0;  // as InstanceBase::Disable does its instances

  // Registers a loaded scene, which stays the caller's. False when the name is taken or the scene null.
  virtual bool AddSimpleScene(const String& name, SimpleScene* scene) = 0;
  virtual void RemoveSimpleScene(const String& name) = 0;

  // The light stays the caller's, who may free it right before the scene: DestroyInstance, RemoveSimpleScene and
  // DestroyScene do not look at lights. False when the scene does not exist.
  virtual bool AddLight(const String& scene, Light* light, const AttachDesc& attach) = 0;

  // Puts an instance of a registered scene into a scene. Returns its id, negative on failure.
  virtual std::int32_t CreateInstance(const String& scene, const String& simpleScene, const Matrix4x4& transform,
                                      const InstanceDesc& desc, const AttachDesc& attach) = 0;
  virtual void DestroyInstance(std::int32_t id) = 0;
  virtual InstanceObject* GetInstance(std::int32_t id) = 0;  // null when there is none
};

}  // namespace qen
