#include "widgets/move_node.h"

#include "engine/gui_page_object.h"
#include "engine/scene_instance.h"
#include "engine/scene_node.h"

namespace qen {

void MoveNode(const ICGUIPageObject& page, TMNode* node, std::int32_t position, const Matrix4x4& matrix,
              const Matrix4x4& inverse) {
  if (node == nullptr || position < 0) return;
  node->transform = matrix;
  node->inverseTransform = inverse;
  if (page.instance == nullptr) return;
  const auto index = static_cast<std::size_t>(position);
  if (index < page.instance->nodeMatrices.size()) page.instance->nodeMatrices[index] = matrix;
}

}  // namespace qen
