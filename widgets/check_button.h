// A check button: two buttons, one a state.
#pragma once

#include <memory>

#include "commands/live_objects.h"
#include "engine/gui_widgets.h"

namespace qen {

class CGUIButton;
class CGUIText;
class IChildNodes;

// Built from the child nodes "checked" and "unchecked", each a button of its own that shares the check button's record,
// and an optional common label "text". Only the button of the present state is shown; a click on it flips the state. A
// state without a node is shown as nothing and cannot be clicked.
class CGUICheckButton : public ICGUICheckButton {
 public:
  explicit CGUICheckButton(const IChildNodes& nodes);
  ~CGUICheckButton() override;

  void Create(ICGUIPageObject* page, ItemInfo* info, TMNode* const* node) override;
  PickResult* Update(const Ray& ray) override;
  void Release() override;
  void ShowNodes(std::uint32_t shown) override;
  void GetMatrix(Matrix4x4& matrix) override;
  void GetAABB(AABB& box) override;

  ICGUIButton* GetCheckedButton() override;
  ICGUIButton* GetUncheckedButton() override;

 private:
  [[nodiscard]] CGUIButton* ActiveButton() const;

  LiveMark alive_{static_cast<ICGUIObject*>(this)};
  const IChildNodes& nodes_;
  std::unique_ptr<CGUIButton> checked_;
  std::unique_ptr<CGUIButton> unchecked_;
  std::unique_ptr<CGUIText> label_;
};

}  // namespace qen
