#include "commands/live_objects.h"

#include <unordered_map>

namespace qen {
namespace {

std::unordered_map<const void*, std::uint64_t>& Serials() {
  static std::unordered_map<const void*, std::uint64_t> serials;
  return serials;
}

}  // namespace

LiveMark::LiveMark(const void* object) : object_(object) {
  static std::uint64_t next = 0;
  Serials()[object] = ++next;
}

LiveMark::~LiveMark() { Serials().erase(object_); }

std::uint64_t LiveSerial(const void* object) {
  const auto& serials = Serials();
  const auto found = serials.find(object);
  return found == serials.end() ? 0 : found->second;
}

}  // namespace qen
