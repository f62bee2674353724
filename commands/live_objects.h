// Knows which pages and widgets are alive. Command records may name some that are gone.
#pragma once

#include <cstdint>

namespace qen {

// Marks its owner as alive. A member of every page and widget; not copied with it.
class LiveMark {
 public:
  explicit LiveMark(const void* object);
  ~LiveMark();
  LiveMark(const LiveMark&) = delete;
  LiveMark& operator=(const LiveMark&) = delete;

 private:
  const void* object_;
};

// A number that belongs to this object alone, also when another one takes its address later; 0 for what is not alive.
std::uint64_t LiveSerial(const void* object);

inline bool IsAlive(const void* object) { return LiveSerial(object) != 0; }

}  // namespace qen
