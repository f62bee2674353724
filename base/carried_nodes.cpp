#include "base/carried_nodes.h"

#include <cstring>

namespace qen::base {

void CarriedNodes::Put(std::size_t node, const Matrix4x4& place, const Matrix4x4& rest) {
  nodes_.insert_or_assign(node, Node{place, rest, place * rest.Inverse()});
}

Matrix4x4 CarriedNodes::Carry(std::size_t node, const Matrix4x4& animated) const {
  const Node& put = nodes_.at(node);
  // Exactly where it was put, without what rounding adds.
  if (std::memcmp(&animated, &put.rest, sizeof animated) == 0) return put.place;
  return put.fromRest * animated;
}

}  // namespace qen::base
