#include "widgets/check_button.h"

#include "engine/item_info.h"
#include "engine/pick_result.h"
#include "engine/widget_state.h"
#include "widgets/bind_child.h"
#include "widgets/button.h"
#include "widgets/text.h"

namespace qen {

CGUICheckButton::CGUICheckButton(const IChildNodes& nodes) : nodes_(nodes) {}

CGUICheckButton::~CGUICheckButton() = default;

void CGUICheckButton::Create(ICGUIPageObject* ownPage, ItemInfo* ownInfo, TMNode* const* ownNode) {
  page = ownPage;
  info = ownInfo;
  node = ownNode != nullptr ? *ownNode : nullptr;
  info->checked = 1;
  checked_ = BindChild<CGUIButton>(nodes_, *this, u"checked");
  unchecked_ = BindChild<CGUIButton>(nodes_, *this, u"unchecked");
  label_ = BindChild<CGUIText>(nodes_, *this, u"text");
  text = label_.get();
}

CGUIButton* CGUICheckButton::ActiveButton() const { return (info->checked != 0 ? checked_ : unchecked_).get(); }

PickResult* CGUICheckButton::Update(const Ray& ray) {
  if (info->visible == 0) {
    ShowNodes(0);
    state = widget_state::kHidden;
    return nullptr;
  }
  const bool checked = info->checked != 0;
  CGUIButton* active = ActiveButton();
  if (const auto& other = checked ? unchecked_ : checked_) other->ShowNodes(0);
  PickResult* result = active != nullptr ? active->Update(ray) : nullptr;
  if (result != nullptr && result->clicked != nullptr) info->checked = checked ? 0 : 1;
  state = active != nullptr ? active->state : widget_state::kNormal;
  if (label_) {
    label_->state = state;
    label_->Update(ray);
  }
  if (result == nullptr) return nullptr;
  if (result->clicked != nullptr) result->clicked = this;
  if (result->hovered != nullptr) result->hovered = this;
  return result;
}

void CGUICheckButton::Release() {
  if (label_) label_->Release();
  label_.reset();
  text = nullptr;
  for (auto* button : {&checked_, &unchecked_}) {
    if (*button) (*button)->Release();
    button->reset();
  }
}

void CGUICheckButton::ShowNodes(std::uint32_t shown) {
  if (label_) label_->ShowNodes(shown);
  if (checked_) checked_->ShowNodes(shown);
  if (unchecked_) unchecked_->ShowNodes(shown);
}

void CGUICheckButton::GetMatrix(Matrix4x4& matrix) {
  if (CGUIButton* active = ActiveButton()) active->GetMatrix(matrix);
}

void CGUICheckButton::GetAABB(AABB& box) {
  if (CGUIButton* active = ActiveButton()) active->GetAABB(box);
}

ICGUIButton* CGUICheckButton::GetCheckedButton() { return checked_.get(); }

ICGUIButton* CGUICheckButton::GetUncheckedButton() { return unchecked_.get(); }

}  // namespace qen
