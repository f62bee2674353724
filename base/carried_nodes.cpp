#include "base/carried_nodes.h"

#include <cmath>
#include <cstring>

namespace qen::base {
namespace {

bool IsIdentity(const Matrix4x4& matrix) {
  constexpr float kTolerance = 1e-3F;
  for (std::size_t row = 0; row < 4; ++row) {
    for (std::size_t column = 0; column < 4; ++column) {
      const float wanted = row == column ? 1.0F : 0.0F;
      if (!(std::fabs(matrix.m[row][column] - wanted) < kTolerance)) return false;
    }
  }
  return true;
}

}  // namespace

void CarriedNodes::Put(std::size_t node, const Matrix4x4& place, const Matrix4x4& rest) {
  const Matrix4x4 toRest = rest.Inverse();
  // In the space of a node that is scaled to nothing at rest there is no place.
  const Matrix4x4 fromRest = IsIdentity(rest * toRest) ? place * toRest : Matrix4x4::Identity;
  nodes_.insert_or_assign(node, Node{place, rest, fromRest});
}

Matrix4x4 CarriedNodes::Carry(std::size_t node, const Matrix4x4& animated) const {
  const Node& put = nodes_.at(node);
  // Exactly where it was put, without what rounding adds.
  if (std::memcmp(&animated, &put.rest, sizeof animated) == 0) return put.place;
  return put.fromRest * animated;
}

}  // namespace qen::base
