// Reads an input byte by byte.
#pragma once

#include <array>
#include <cstddef>
#include <limits>

#include "fuzz/target.h"

namespace qen::fuzz {

class Bytes {
 public:
  explicit Bytes(Input input) : input_(input) {}

  [[nodiscard]] bool AtEnd() const { return input_.empty(); }

  // 0 at the end. Bytes are mostly letters and digits, so that inputs can be read by people.
  std::uint8_t Next() {
    if (input_.empty()) return 0;
    const std::uint8_t byte = input_.front();
    input_ = input_.subspan(1);
    return byte;
  }

  // One of the elements: '0' the first, and so on, round and round.
  template <class List>
  auto& OneOf(List& list) {
    return std::data(list)[static_cast<std::uint8_t>(Next() - '0') % std::size(list)];
  }

  std::int32_t Number() { return OneOf(kNumbers); }
  std::uint32_t Flag() { return static_cast<std::uint32_t>(Number()); }
  std::uint32_t Index() { return static_cast<std::uint32_t>(Next() - '0'); }  // perhaps out of range

 private:
  using Limits = std::numeric_limits<std::int32_t>;
  static constexpr std::array<std::int32_t, 20> kNumbers{
      0,  1,   2,    3,   -1,  100,   255,   -100,  1000,          Limits::max(),  // '0' to '9'
      -2, 120, -120, 256, 500, 32767, 65535, 65536, Limits::min(), 7,
  };

  Input input_;
};

}  // namespace qen::fuzz
