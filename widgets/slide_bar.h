// A slide bar: edits the position of its record between min and max.
#pragma once

#include <memory>

#include "commands/live_objects.h"
#include "engine/aabb.h"
#include "engine/gui_widgets.h"
#include "engine/matrix.h"
#include "engine/pick_result.h"

namespace qen {

class CGUIButton;
class IChildNodes;

// Built from up to four buttons that share its record: a bar ("barx" or "bary"), a "slider" that is moved along it, and
// the step buttons "down" and "up". What is missing is left out.
class CGUISlideBar : public ICGUISlideBar {
 public:
  explicit CGUISlideBar(const IChildNodes& nodes);
  ~CGUISlideBar() override;

  void Create(ICGUIPageObject* page, ItemInfo* info, TMNode* const* node) override;
  PickResult* Update(const Ray& ray) override;
  void Release() override;
  void ShowNodes(std::uint32_t shown) override;

 private:
  enum class Orientation : std::uint8_t { None, Horizontal, Vertical };

  bool UpdateBar(const Ray& ray);
  void TakeKey();
  void Drag(const Vec3& point);
  void MoveBy(std::int64_t step);
  void SetPosition(std::int64_t position);
  [[nodiscard]] std::int64_t Span() const;
  PickResult* UpdateStepButtons(const Ray& ray);
  void Step(std::int32_t direction);
  [[nodiscard]] float HalfSlider();
  void PlaceSlider(float halfSlider);
  PickResult* Report(PickResult* result);

  LiveMark alive_{static_cast<ICGUIObject*>(this)};
  const IChildNodes& nodes_;
  Orientation orientation_ = Orientation::None;
  std::unique_ptr<CGUIButton> bar_;
  std::unique_ptr<CGUIButton> slider_;
  std::unique_ptr<CGUIButton> down_;
  std::unique_ptr<CGUIButton> up_;
  Matrix4x4 sliderRest_ = Matrix4x4::Identity;  // the slider is placed relative to it
  AABB barBox_;
  PickResult result_;
};

}  // namespace qen
