// A 32-bit colour, 0xAARRGGBB.
#pragma once

#include <cstdint>

namespace qen {

struct Color {
  std::uint32_t argb = 0;

  constexpr Color() = default;
  constexpr explicit Color(std::uint32_t value) : argb(value) {}

  // Swaps red and blue; its own inverse. Definition files keep colours as 0xAABBGGRR.
  static constexpr std::uint32_t ABGRToARGB(std::uint32_t abgr) {
    return (abgr & 0xFF00FF00U) | ((abgr & 0xFFU) << 16U) | ((abgr >> 16U) & 0xFFU);
  }
};

}  // namespace qen
