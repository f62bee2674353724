// A button: three states of one node, and a label.
#pragma once

#include <memory>

#include "commands/live_objects.h"
#include "engine/gui_widgets.h"
#include "engine/pick_result.h"
#include "widgets/node_hook.h"

namespace qen {

class CGUIText;
class IChildNodes;

// Shows exactly one of its state meshes ("normal", "onmouse", "disabled") while visible. A missing state falls back to
// the normal one; without a normal node the button is inert: never drawn, never hit.
class CGUIButton : public ICGUIButton {
 public:
  explicit CGUIButton(const IChildNodes& nodes);
  ~CGUIButton() override;

  void Create(ICGUIPageObject* page, ItemInfo* info, TMNode* const* node) override;
  PickResult* Update(const Ray& ray) override;
  void Release() override;
  void ShowNodes(std::uint32_t shown) override;
  void SetMatrix(const Matrix4x4& matrix) override;

 private:
  void BindStates();
  void ShowState(bool hovered);

  LiveMark alive_{static_cast<ICGUIObject*>(this)};
  const IChildNodes& nodes_;
  NodeHook normalHook_;
  NodeHook onMouseHook_;
  NodeHook disabledHook_;
  std::unique_ptr<CGUIText> label_;
  PickResult result_;
};

}  // namespace qen
