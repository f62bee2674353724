// The material manager.
#pragma once

#include "base/resource_store.h"
#include "engine/material.h"

namespace qen::base {

class MaterialObject final : public Material {
 public:
  MaterialObject(StringView name, StringView group) : Material(name, group) {}
};

class MaterialService final : public MaterialManager {
 public:
  Material* Create(const String& name, const String& group) override;
  Material* GetByName(const String& name, const String& group) override;
  void Destroy(Resource* resource) override;

 private:
  Material* Use(const String& name, const String& group);

  ResourceStore<MaterialObject> materials_;
};

}  // namespace qen::base
