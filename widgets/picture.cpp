#include "widgets/picture.h"

#include "commands/dispatch.h"
#include "engine/item_info.h"
#include "engine/matrix.h"
#include "engine/mesh.h"
#include "engine/messages.h"
#include "engine/scene_node.h"
#include "engine/widget_state.h"
#include "widgets/child_nodes.h"
#include "widgets/hit_test.h"
#include "widgets/move_node.h"

namespace qen {

void CGUIPicture::Create(ICGUIPageObject* ownPage, ItemInfo* ownInfo, TMNode* const* ownNode) {
  page = ownPage;
  info = ownInfo;
  node = ownNode != nullptr ? *ownNode : nullptr;
  normalNode = node;
  if (node == nullptr) return;
  hook_.Attach(*node, *info, this);
  normalIndex = nodes_.NodePosition(node);
  if (const SubMesh* part = FirstPart()) initialTexture_ = part->GetMaterialParams().GetTexture(TEXTURE_SLOT_1);
}

SubMesh* CGUIPicture::FirstPart() const {
  return normalNode != nullptr && normalNode->mesh != nullptr ? normalNode->mesh->GetSubMesh(0) : nullptr;
}

PickResult* CGUIPicture::Update(const Ray& ray) {
  ShowNodes(0);
  if (info->visible == 0) {
    state = widget_state::kHidden;
    return nullptr;
  }
  state = widget_state::kNormal;
  hook_.Show(true);
  const bool clicked = info->disabled == 0 && info->mouseState == mouse_state::kReleased && normalNode != nullptr &&
                       HitsNode(ray, *normalNode);
  if (clicked) DispatchItemCommands(message::kCommand, *this);
  return nullptr;
}

void CGUIPicture::Release() { hook_.Detach(); }

void CGUIPicture::ShowNodes(std::uint32_t shown) { hook_.Show(shown != 0); }

void CGUIPicture::SetMatrix(const Matrix4x4& matrix) {
  MoveNode(*page, normalNode, normalIndex, matrix, matrix.Inverse());
}

void CGUIPicture::SetTexture(Texture* texture) {
  SubMesh* part = FirstPart();
  if (part == nullptr) return;
  MaterialParams& params = part->GetMaterialParams();
  params.RemoveTexture(TEXTURE_SLOT_1);
  params.AddTexture(TEXTURE_SLOT_1, texture != nullptr ? texture : initialTexture_);
}

}  // namespace qen
