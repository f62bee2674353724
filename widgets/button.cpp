#include "widgets/button.h"

#include "commands/dispatch.h"
#include "engine/gui.h"
#include "engine/gui_page_object.h"
#include "engine/item_info.h"
#include "engine/messages.h"
#include "engine/scene_node.h"
#include "engine/system.h"
#include "engine/widget_state.h"
#include "widgets/bind_child.h"
#include "widgets/hit_test.h"
#include "widgets/move_node.h"
#include "widgets/text.h"

namespace qen {

CGUIButton::CGUIButton(const IChildNodes& nodes) : nodes_(nodes) {}

CGUIButton::~CGUIButton() = default;

void CGUIButton::Create(ICGUIPageObject* ownPage, ItemInfo* ownInfo, TMNode* const* ownNode) {
  page = ownPage;
  info = ownInfo;
  node = ownNode != nullptr ? *ownNode : nullptr;
  BindStates();
  label_ = BindChild<CGUIText>(nodes_, *this, u"text");
  text = label_.get();
}

void CGUIButton::BindStates() {
  nodes_.FindChildNode(node, u"normal", normalNode, normalIndex);
  nodes_.FindChildNode(node, u"onmouse", onMouseNode, onMouseIndex);
  nodes_.FindChildNode(node, u"disabled", disabledNode, disabledIndex);
  if (normalNode != nullptr) normalHook_.Attach(*normalNode, *info, nullptr);
  if (onMouseNode != nullptr) onMouseHook_.Attach(*onMouseNode, *info, nullptr);
  if (disabledNode != nullptr) disabledHook_.Attach(*disabledNode, *info, nullptr);
  if (onMouseNode == nullptr) onMouseNode = normalNode;
  if (disabledNode == nullptr) disabledNode = normalNode;
}

PickResult* CGUIButton::Update(const Ray& ray) {
  result_ = {};
  ShowNodes(0);
  if (info->visible == 0) {
    state = widget_state::kHidden;
    return nullptr;
  }
  const bool hovered = info->disabled == 0 && normalNode != nullptr && HitsNode(ray, *normalNode);
  ShowState(hovered);
  const bool clicked = hovered && info->mouseState == mouse_state::kReleased;
  if (label_) {
    label_->state = state;
    label_->Update(ray);
  }
  if (clicked) {
    DispatchItemCommands(message::kCommand, *this);
    result_.clicked = this;
    page->PlaySound(this, clickSound);
  }
  return result_.clicked != nullptr || result_.hovered != nullptr ? &result_ : nullptr;
}

void CGUIButton::ShowState(bool hovered) {
  const bool held = info->mouseState == mouse_state::kHeld;
  state = hovered && !held ? widget_state::kOnMouse : widget_state::kNormal;
  if (state == widget_state::kOnMouse) {
    (onMouseIndex >= 0 ? onMouseHook_ : normalHook_).Show(true);
    if (System::gui != nullptr) System::gui->SetTooltip(info->tooltip);
    result_.hovered = this;
    page->PlaySound(this, hoverSound);
    return;
  }
  const bool showsDisabled = info->disabled != 0 && disabledIndex >= 0;
  (showsDisabled ? disabledHook_ : normalHook_).Show(true);
}

void CGUIButton::Release() {
  if (label_) label_->Release();
  label_.reset();
  text = nullptr;
  normalHook_.Detach();
  onMouseHook_.Detach();
  disabledHook_.Detach();
}

void CGUIButton::ShowNodes(std::uint32_t shown) {
  normalHook_.Show(shown != 0);
  onMouseHook_.Show(shown != 0);
  disabledHook_.Show(shown != 0);
  if (label_) label_->ShowNodes(shown);
}

void CGUIButton::SetMatrix(const Matrix4x4& matrix) {
  const Matrix4x4 inverse = matrix.Inverse();
  MoveNode(*page, normalNode, normalIndex, matrix, inverse);
  MoveNode(*page, onMouseNode, onMouseIndex, matrix, inverse);
  MoveNode(*page, disabledNode, disabledIndex, matrix, inverse);
}

}  // namespace qen
