// Numbers for what a frame has of a kind.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace qen::host {

// Numbers keys from 0 on, in the order in which they come. Forgets them all at once, and keeps its storage.
template <class Key, class Hash>
class FrameIndex {
 public:
  // The number of a key, and whether it is new.
  std::pair<std::uint32_t, bool> NumberOf(const Key& key) {
    if (last_ < keys_.size() && keys_[last_] == key) return {last_, false};
    if (2 * (keys_.size() + 1) > slots_.size()) Grow();
    std::uint32_t& slot = slots_[SlotOf(key)];
    const bool isNew = slot == kFree;
    if (isNew) {
      slot = static_cast<std::uint32_t>(keys_.size());
      keys_.push_back(key);
    }
    last_ = slot;
    return {slot, isNew};
  }

  void Clear() {
    if (keys_.empty()) return;
    keys_.clear();
    std::ranges::fill(slots_, kFree);
  }

 private:
  static constexpr std::uint32_t kFree = 0xFFFFFFFF;

  // Where the key is, or belongs.
  [[nodiscard]] std::size_t SlotOf(const Key& key) const {
    std::size_t slot = Hash{}(key) & (slots_.size() - 1);
    while (slots_[slot] != kFree && !(keys_[slots_[slot]] == key)) slot = (slot + 1) & (slots_.size() - 1);
    return slot;
  }

  void Grow() {
    slots_.assign(std::max<std::size_t>(16, 2 * slots_.size()), kFree);
    for (std::uint32_t i = 0; i < keys_.size(); ++i) slots_[SlotOf(keys_[i])] = i;
  }

  std::vector<Key> keys_;
  std::vector<std::uint32_t> slots_;  // a power of two, at most half of them taken
  std::uint32_t last_ = 0;            // was asked for
};

}  // namespace qen::host
