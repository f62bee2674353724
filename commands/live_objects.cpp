#include "commands/live_objects.h"

#include <cstddef>
#include <utility>
#include <vector>

namespace qen {
namespace {

// Serials by address. Every widget has one, and a standard map takes twice the room and an allocation for each. An
// entry lies where its address says, or behind that without a gap between.
class SerialTable {
 public:
  void Add(const void* object, std::uint64_t serial) {
    if (4 * (count_ + 1) > 3 * entries_.size()) Grow();
    Entry& entry = entries_[IndexOf(object)];
    if (entry.object == nullptr) ++count_;
    entry = {object, serial};
  }

  void Erase(const void* object) {
    std::size_t hole = IndexOf(object);
    if (entries_[hole].object == nullptr) return;
    --count_;
    // What would no more be found over the gap moves into it.
    for (std::size_t i = Next(hole); entries_[i].object != nullptr; i = Next(i)) {
      const std::size_t fromHome = (i - HomeOf(entries_[i].object)) & Mask();
      if (fromHome < ((i - hole) & Mask())) continue;
      entries_[hole] = entries_[i];
      hole = i;
    }
    entries_[hole] = {};
  }

  [[nodiscard]] std::uint64_t Find(const void* object) const {
    return entries_.empty() || object == nullptr ? 0 : entries_[IndexOf(object)].serial;
  }

 private:
  static constexpr std::size_t kFewest = 32;

  struct Entry {
    const void* object = nullptr;  // null: none
    std::uint64_t serial = 0;
  };

  void Grow() {
    const std::vector<Entry> old = std::exchange(entries_, {});
    entries_.resize(old.empty() ? kFewest : 2 * old.size());
    for (const Entry& entry : old) {
      if (entry.object != nullptr) entries_[IndexOf(entry.object)] = entry;
    }
  }

  [[nodiscard]] std::size_t Mask() const { return entries_.size() - 1; }
  [[nodiscard]] std::size_t Next(std::size_t index) const { return (index + 1) & Mask(); }

  [[nodiscard]] std::size_t HomeOf(const void* object) const {
    constexpr std::uint64_t kGoldenRatio = 0x9E3779B97F4A7C15;
    constexpr unsigned kBest = 32;  // the best mixed bits are above
    return static_cast<std::size_t>(reinterpret_cast<std::uintptr_t>(object) * kGoldenRatio >> kBest) & Mask();
  }

  [[nodiscard]] std::size_t IndexOf(const void* object) const {
    std::size_t index = HomeOf(object);
    while (entries_[index].object != nullptr && entries_[index].object != object) index = Next(index);
    return index;
  }

  std::vector<Entry> entries_;  // their number is a power of two
  std::size_t count_ = 0;
};

SerialTable& Serials() {
  static SerialTable serials;
  return serials;
}

}  // namespace

LiveMark::LiveMark(const void* object) : object_(object) {
  static std::uint64_t next = 0;
  Serials().Add(object, ++next);
}

LiveMark::~LiveMark() { Serials().Erase(object_); }

std::uint64_t LiveSerial(const void* object) { return Serials().Find(object); }

}  // namespace qen
