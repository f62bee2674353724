// A picture: a clickable mesh whose texture can be replaced.
#pragma once

#include "commands/live_objects.h"
#include "engine/gui_widgets.h"
#include "widgets/node_hook.h"

namespace qen {

class IChildNodes;
class SubMesh;

class CGUIPicture : public ICGUIPicture {
 public:
  explicit CGUIPicture(const IChildNodes& nodes) : nodes_(nodes) {}

  void Create(ICGUIPageObject* page, ItemInfo* info, TMNode* const* node) override;
  PickResult* Update(const Ray& ray) override;
  void Release() override;
  void ShowNodes(std::uint32_t shown) override;
  void SetMatrix(const Matrix4x4& matrix) override;
  void SetTexture(Texture* texture) override;

 private:
  [[nodiscard]] SubMesh* FirstPart() const;  // of its mesh; null without a mesh

  LiveMark alive_{static_cast<ICGUIObject*>(this)};
  const IChildNodes& nodes_;
  NodeHook hook_;
  Texture* initialTexture_ = nullptr;  // not owned
};

}  // namespace qen
