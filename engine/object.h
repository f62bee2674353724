// The base of every message handler, and the message it receives.
#pragma once

#include <cstdint>

namespace qen {

// A message as it is delivered. What the parameters mean depends on the id.
struct Msg {
  std::uint32_t id = 0;
  std::uint32_t first = 0;
  std::uintptr_t second = 0;  // a number or a pointer
};

class Object {
 public:
  virtual ~Object() = default;
  // Returns what the message asks for; 0 when there is nothing to say.
  virtual std::int32_t OnMessage(const Msg& message) = 0;

 protected:
  Object() = default;
  Object(const Object&) = default;
  Object& operator=(const Object&) = default;
};

}  // namespace qen
