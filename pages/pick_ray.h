// The ray from the eye through the cursor.
#pragma once

#include <cstdint>
#include <optional>

#include "engine/vec.h"

namespace qen {

class Viewport;
struct Matrix4x4;

struct PickLine {
  Vec3 origin;     // world space
  Vec3 direction;  // not normalised
};

struct ClientSize {
  float width = 0.0F;  // pixels
  float height = 0.0F;
};

// The main window's client area; nothing when it has none, as while it is minimised.
std::optional<ClientSize> MainClientSize();

// Through the pixel (x, y) of the client area. Nothing without a camera or a client area.
std::optional<PickLine> BuildPickLine(const Viewport& viewport, std::uint32_t x, std::uint32_t y);

// Puts the system's cursor on the client pixel where the camera sees the point. Nothing when it cannot be seen.
void PlaceCursor(const Viewport& viewport, const Matrix4x4& world, const Vec3& point);

}  // namespace qen
