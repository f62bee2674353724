#include "host/render/frame_plan.h"

#include <cstring>

namespace qen::host {
namespace {

// Bit by bit, so that numbers that are none are the same too.
template <class T>
bool AreSame(const std::vector<T>& a, const std::vector<T>& b) {
  return a.size() == b.size() && (a.empty() || std::memcmp(a.data(), b.data(), a.size() * sizeof(T)) == 0);
}

}  // namespace

void FramePlan::Clear() {
  layers.clear();
  batches.clear();
  materials.clear();
  lights.clear();
  places.clear();
  vertices.clear();
  texts.clear();
  glyphs.clear();
}

bool FramePlan::ShowsTheSameAs(const FramePlan& other) const {
  return AreSame(layers, other.layers) && batches == other.batches && materials == other.materials &&
         lights == other.lights && AreSame(vertices, other.vertices) && AreSame(texts, other.texts) &&
         AreSame(places, other.places);
}

}  // namespace qen::host
