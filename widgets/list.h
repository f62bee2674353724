// A list: a scrollable column of entries in the box of a node.
#pragma once

#include <memory>
#include <vector>

#include "commands/live_objects.h"
#include "engine/gui_widgets.h"
#include "engine/matrix.h"
#include "engine/pick_result.h"
#include "widgets/node_hook.h"

namespace qen {

class CGUIItem;
class CGUISlideBar;
class CGUIText;
class Drawing;
class IChildNodes;
struct LocalRay;
struct SlabHit;

// Bound to the child nodes "list" (the box of the rows) and "slidery" (its slide bar, which shares the list's record:
// position is the top row). Its text child has no node; it holds the font and the colours of the rows. Without a "list"
// node the list keeps its entries but is neither drawn nor hit.
class CGUIList : public ICGUIList {
 public:
  explicit CGUIList(const IChildNodes& nodes);
  ~CGUIList() override;

  void Create(ICGUIPageObject* page, ItemInfo* info, TMNode* const* node) override;
  PickResult* Update(const Ray& ray) override;
  void Render(const Matrix4x4& world, const AABB& box) override;
  void Release() override;
  void ShowNodes(std::uint32_t shown) override;

  void Clear() override;
  void SelectItem(ICGUIItem* item) override;
  std::vector<std::uint32_t>& GetSelectedIndices(std::vector<std::uint32_t>& indices) override;
  std::uint32_t GetItemCount() override;
  ICGUIItem* AddItem() override;
  ICGUIItem* AddItemCopy(const ICGUIItem* source) override;
  void RemoveItem(ICGUIItem* item) override;
  void RemoveItemAt(std::uint32_t index) override;
  ICGUIItem* GetItem(std::uint32_t index) override;

  std::int32_t maxSelect = 1;  // 0: the top row is selected; 1: one row; more: up to so many

 private:
  struct Selection {
    std::int64_t count = 0;
    std::size_t first = 0;  // positions; without meaning when the count is 0
    std::size_t last = 0;
  };

  [[nodiscard]] bool HasBox() const;
  void Measure();
  [[nodiscard]] Selection FindSelection() const;
  const Selection& CurrentSelection();
  void ForgetSelection() { selectionSeen_ = 0; }
  void StepSelection();
  void UpdateRows(const LocalRay& ray, const SlabHit& hit);
  void ClickItem(CGUIItem& item);
  void FollowTopRow(std::size_t top);
  void Select(CGUIItem& item, bool selected);
  [[nodiscard]] std::size_t FirstShown() const;
  [[nodiscard]] std::size_t EndShown() const;
  void DrawRow(Drawing& drawing, const CGUIItem& item, const Matrix4x4& matrix, float height) const;

  LiveMark alive_{static_cast<ICGUIObject*>(this)};
  const IChildNodes& nodes_;
  NodeHook hook_;
  std::vector<std::unique_ptr<CGUIItem>> items_;
  Selection selection_;              // as it was found
  std::uint64_t selectionSeen_ = 0;  // when the count of changes was this; 0: not found yet
  std::unique_ptr<CGUISlideBar> slideBar_;
  std::unique_ptr<CGUIText> style_;
  std::int32_t rows_ = 0;  // how many fit the box
  Matrix4x4 listMatrix_ = Matrix4x4::Identity;
  float lineHeight_ = 0.0F;  // world units
  float boxWidth_ = 0.0F;
  float boxHeight_ = 0.0F;
  PickResult result_;
};

}  // namespace qen
