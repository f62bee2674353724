// Resources counted by name: the common part of the managers.
#pragma once

#include <memory>
#include <unordered_map>
#include <utility>

#include "engine/resource.h"
#include "engine/types.h"

namespace qen::base {

template <class T>
class ResourceStore {
 public:
  // The resource of that key with one use more; null when there is none.
  T* Use(const String& key) {
    const auto found = byKey_.find(key);
    if (found == byKey_.end()) return nullptr;
    ++found->second->uses;
    return found->second->resource.get();
  }

  // Takes a new resource with one use.
  T* Add(const String& key, std::unique_ptr<T> resource) {
    T* added = resource.get();
    Entry& entry = entries_.emplace(added, Entry{std::move(resource), key, 1}).first->second;
    byKey_.emplace(key, &entry);
    return added;
  }

  // The resource when it is from here, which is looked up by its address only; else null.
  [[nodiscard]] const Resource* Known(const Resource* resource) const {
    return entries_.contains(resource) ? resource : nullptr;
  }

  // Takes one use away. Gives the resource back when that was the last; null otherwise and for what is not from here,
  // which is not looked at.
  std::unique_ptr<T> Release(const Resource* resource) {
    const auto found = entries_.find(resource);
    if (found == entries_.end() || --found->second.uses > 0) return nullptr;
    byKey_.erase(found->second.key);
    return std::move(entries_.extract(found).mapped().resource);
  }

 private:
  struct Entry {
    std::unique_ptr<T> resource;
    String key;
    std::uint32_t uses = 0;
  };

  std::unordered_map<const Resource*, Entry> entries_;
  std::unordered_map<String, Entry*> byKey_;
};

// Names of files that mean the same file give the same key.
QEN_API String FileKey(StringView name);

}  // namespace qen::base
