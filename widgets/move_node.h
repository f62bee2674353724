// Moves a scene node that a widget shows.
#pragma once

#include <cstdint>

namespace qen {

class ICGUIPageObject;
struct Matrix4x4;
struct TMNode;

// Gives the node a new world matrix, for drawing in the page's instance and for picking. Nothing without a node or with
// a negative position.
void MoveNode(const ICGUIPageObject& page, TMNode* node, std::int32_t position, const Matrix4x4& matrix,
              const Matrix4x4& inverse);

}  // namespace qen
