// What fonts, materials and textures have in common, and the manager that owns them.
#pragma once

#include <cstdint>

#include "engine/types.h"

namespace qen {

inline constexpr const Char* kDefaultGroup = u"_DefaultGroup_";

// Owned by its manager and counted there: each creation or load that returns it adds a use, each Destroy takes one
// away.
class Resource {
 public:
  virtual ~Resource() = default;
  Resource(const Resource&) = delete;
  Resource& operator=(const Resource&) = delete;

  [[nodiscard]] const String& GetName() const { return name_; }
  [[nodiscard]] const String& GetGroup() const { return group_; }

 protected:
  Resource(StringView name, StringView group) : name_(name), group_(group) {}

 private:
  String name_;
  String group_;
};

class ResourceManager {
 public:
  virtual ~ResourceManager() = default;
  // Gives back one use; the last one frees the resource. Null and resources of other managers are ignored.
  virtual void Destroy(Resource* resource) = 0;
};

}  // namespace qen
