// Routes messages to the registered handlers.
#pragma once

#include <cstdint>
#include <vector>

#include "engine/object.h"
#include "engine/types.h"

namespace qen {

class QEN_API MsgDaemon {
 public:
  // From now on `handler` receives every message sent with a category that shares a bit with `category`. A handler that
  // is registered already gets the bits added. Null is ignored.
  void AddHandler(Object* handler, std::uint32_t category);

  // Takes the bits away; a handler without bits left receives nothing more, also not from a delivery in progress.
  void RemoveHandler(Object* handler, std::uint32_t category);

  // Delivers synchronously, in order of registration, to the handlers registered before the call; handlers may send,
  // register and unregister meanwhile. Returns the last non-zero answer, else 0.
  std::int32_t ProcMsg(std::uint32_t id, std::uint32_t first, std::uintptr_t second, std::uint32_t category);

 private:
  struct Entry {
    Object* handler = nullptr;  // null once removed during a delivery
    std::uint32_t category = 0;
  };

  class Delivery;

  void DropRemoved();

  std::vector<Entry> entries_;
  int depth_ = 0;  // deliveries in progress
};

}  // namespace qen
