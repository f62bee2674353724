// A slot of the inventory bag: a textured square that the module draws itself.
#pragma once

#include "commands/live_objects.h"
#include "engine/bag_entry.h"
#include "engine/gui_widgets.h"
#include "engine/material.h"
#include "widgets/node_hook.h"

namespace qen {

class IChildNodes;
class Texture;

class CGUIQuad : public ICGUIDummy {
 public:
  explicit CGUIQuad(const IChildNodes& nodes) : nodes_(nodes) {}
  ~CGUIQuad() override;

  void Create(ICGUIPageObject* page, ItemInfo* info, TMNode* const* node) override;
  PickResult* Update(const Ray& ray) override;
  void Render(const Matrix4x4& world, const AABB& box) override;
  void Release() override;
  void SetVisible(std::uint32_t visible) override;  // these two do nothing
  void SetDisabled(std::uint32_t disabled) override;
  void ShowNodes(std::uint32_t shown) override;
  void SetMatrix(const Matrix4x4& matrix) override;
  std::int32_t& GetId() override { return quadId_; }

  void LoadTexture() override;
  void SetQuadTexture(Texture* texture) override;
  void SetColor(std::uint32_t color, bool reset) override;
  BagRecord& GetBagRecord() override { return record_; }
  float& GetScale() override { return scale_; }
  std::int32_t& GetAlpha() override { return alpha_; }
  std::int32_t& GetActive() override { return active_; }

 private:
  static constexpr std::uint32_t kDefaultColor = 0xFFFFFF;  // 0x00RRGGBB

  void DestroyResources();
  [[nodiscard]] float ScaleFactor() const;

  LiveMark alive_{static_cast<ICGUIObject*>(this)};
  const IChildNodes& nodes_;
  NodeHook hook_;
  Texture* texture_ = nullptr;  // a use of the texture manager's
  MaterialParams params_;
  Material* material_ = nullptr;  // a use of the material manager's
  BagRecord record_;
  float scale_ = 1.0F;
  std::int32_t alpha_ = 255;
  std::int32_t active_ = 0;  // pulses between 1 and the scale
  float phase_ = 0.0F;       // of the pulse, in [0, 2)
  std::uint32_t color_ = kDefaultColor;
  std::int32_t quadId_ = 0;
};

}  // namespace qen
