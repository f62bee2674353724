#include "base/materials.h"

#include "base/context.h"
#include "base/record.h"
#include "engine/mesh.h"
#include "engine/texture.h"

namespace qen {

MaterialManager* MaterialManager::GetSingleton() {
  base::Context* context = base::CurrentContext();
  return context == nullptr ? nullptr : &context->materials;
}

void MaterialParams::AddTexture(TEXTURE_SLOT slot, Texture* texture) {
  base::Record("MaterialParams::AddTexture", base::Named{this}, static_cast<std::uint32_t>(slot),
               static_cast<const Resource*>(texture));
  if (slot < TEXTURE_SLOT_COUNT) textures_[slot] = texture;
}

void MaterialParams::RemoveTexture(TEXTURE_SLOT slot) {
  base::Record("MaterialParams::RemoveTexture", base::Named{this}, static_cast<std::uint32_t>(slot));
  if (slot < TEXTURE_SLOT_COUNT) textures_[slot] = nullptr;
}

Texture* MaterialParams::GetTexture(TEXTURE_SLOT slot) const {
  return slot < TEXTURE_SLOT_COUNT ? textures_[slot] : nullptr;
}

MaterialParams& SubMesh::GetMaterialParams() {
  const bool isFirst = !params_.IsOwn();
  MaterialParams& own = params_.Own();
  if (isFirst) base::NameAlike(&own, this);
  return own;
}

}  // namespace qen

namespace qen::base {

Material* MaterialService::Create(const String& name, const String& group) {
  Record("MaterialManager::Create", name, group);
  return Use(name, group);
}

Material* MaterialService::GetByName(const String& name, const String& group) {
  Record("MaterialManager::GetByName", name, group);
  return Use(name, group);
}

void MaterialService::Destroy(Resource* resource) {
  Record("MaterialManager::Destroy", materials_.Known(resource));
  materials_.Release(resource);
}

Material* MaterialService::Use(const String& name, const String& group) {
  const String key = name + u'\n' + group;
  if (MaterialObject* known = materials_.Use(key)) return known;
  return materials_.Add(key, std::make_unique<MaterialObject>(name, group));
}

}  // namespace qen::base
