// Objects under numbers that are never 0.
#pragma once

#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

namespace qen::host {

template <class T>
class HandleTable {
 public:
  std::uint32_t Add(T object) {
    ++changes_;
    if (free_.empty()) {
      objects_.emplace_back(std::move(object));
      return static_cast<std::uint32_t>(objects_.size());
    }
    const std::uint32_t handle = free_.back();
    free_.pop_back();
    objects_[handle - 1].emplace(std::move(object));
    return handle;
  }

  // Unknown numbers are ignored.
  void Remove(std::uint32_t handle) {
    if (Find(handle) == nullptr) return;
    ++changes_;
    objects_[handle - 1].reset();
    free_.push_back(handle);
  }

  // Null for unknown numbers.
  [[nodiscard]] const T* Find(std::uint32_t handle) const {
    if (handle == 0 || handle > objects_.size() || !objects_[handle - 1].has_value()) return nullptr;
    return &*objects_[handle - 1];
  }

  [[nodiscard]] std::uint64_t Changes() const { return changes_; }  // how often something was added or removed

 private:
  std::vector<std::optional<T>> objects_;
  std::vector<std::uint32_t> free_;
  std::uint64_t changes_ = 0;
};

}  // namespace qen::host
