#include "widgets/slide_bar.h"

#include <algorithm>
#include <limits>

#include "commands/dispatch.h"
#include "engine/gui_page_object.h"
#include "engine/item_info.h"
#include "engine/messages.h"
#include "engine/scene_node.h"
#include "engine/widget_state.h"
#include "widgets/bind_child.h"
#include "widgets/button.h"
#include "widgets/hit_test.h"
#include "widgets/key_codes.h"
#include "widgets/numbers.h"

namespace qen {

CGUISlideBar::CGUISlideBar(const IChildNodes& nodes) : nodes_(nodes) {}

CGUISlideBar::~CGUISlideBar() = default;

void CGUISlideBar::Create(ICGUIPageObject* ownPage, ItemInfo* ownInfo, TMNode* const* ownNode) {
  page = ownPage;
  info = ownInfo;
  node = ownNode != nullptr ? *ownNode : nullptr;
  info->max = 100;
  info->min = 0;
  info->position = info->min;

  bar_ = BindChild<CGUIButton>(nodes_, *this, u"barx");
  orientation_ = bar_ ? Orientation::Horizontal : Orientation::None;
  if (!bar_) {
    bar_ = BindChild<CGUIButton>(nodes_, *this, u"bary");
    if (bar_) orientation_ = Orientation::Vertical;
  }
  if (bar_) {
    bar_->hoverSound = sound_kind::kNone;
    slider_ = BindChild<CGUIButton>(nodes_, *this, u"slider");
  }
  if (slider_) slider_->GetMatrix(sliderRest_);
  down_ = BindChild<CGUIButton>(nodes_, *this, u"down");
  up_ = BindChild<CGUIButton>(nodes_, *this, u"up");
}

PickResult* CGUISlideBar::Update(const Ray& ray) {
  result_ = {};
  if (info->visible == 0) {
    ShowNodes(0);
    state = widget_state::kHidden;
    return nullptr;
  }
  PickResult* result = slider_ ? slider_->Update(ray) : nullptr;
  const float halfSlider = HalfSlider();
  if (UpdateBar(ray)) result = &result_;
  SetPosition(info->position);
  if (result == nullptr) result = UpdateStepButtons(ray);
  PlaceSlider(halfSlider);
  state = info->disabled == 0 && result != nullptr ? widget_state::kOnMouse : widget_state::kNormal;
  return Report(result);
}

float CGUISlideBar::HalfSlider() {
  if (!slider_) return 0.0F;
  AABB box;
  slider_->GetAABB(box);
  return 0.5F * (orientation_ == Orientation::Horizontal ? box.getMax().x : box.getMax().y);
}

// Updates the bar with its keys and dragging. True when the pointer is on it.
bool CGUISlideBar::UpdateBar(const Ray& ray) {
  if (!bar_ || bar_->normalNode == nullptr) return false;
  bar_->GetAABB(barBox_);
  bar_->Update(ray);
  const LocalRay local = ToLocal(ray, *bar_->normalNode);
  const SlabHit hit = IntersectSlabs(barBox_, local);
  if (!hit.hit || info->disabled != 0 || bar_->normalNode->mesh == nullptr) return false;
  result_.hovered = this;
  TakeKey();
  if (info->mouseState == mouse_state::kHeld) {
    result_.clicked = this;
    Drag(local.origin + local.direction * hit.distance);
  }
  return true;
}

void CGUISlideBar::TakeKey() {
  const std::int64_t step = std::max<std::int64_t>(Span() / 10, 1);
  if (info->key == key_code::kDown) {
    MoveBy(step);
  } else if (info->key == key_code::kUp) {
    MoveBy(-step);
  }
}

void CGUISlideBar::MoveBy(std::int64_t step) {
  const std::int64_t moved = info->position + step;
  info->position = static_cast<std::int32_t>(std::clamp<std::int64_t>(moved, std::numeric_limits<std::int32_t>::min(),
                                                                      std::numeric_limits<std::int32_t>::max()));
  DispatchItemCommands(message::kNotification, *this);
}

void CGUISlideBar::Drag(const Vec3& point) {
  const Vec3 low = barBox_.getMin();
  const Vec3 high = barBox_.getMax();
  const auto span = static_cast<double>(Span());
  if (orientation_ == Orientation::Horizontal) {
    const double part = static_cast<double>(point.x - low.x) / static_cast<double>(high.x - low.x);
    SetPosition(std::int64_t{Truncate<std::int32_t>(part * span)} + info->min);
  } else {
    const double part = static_cast<double>(point.z - low.z) / static_cast<double>(high.z - low.z);
    SetPosition(std::int64_t{info->max} - Truncate<std::int32_t>(part * span));
  }
}

void CGUISlideBar::SetPosition(std::int64_t position) {
  const std::int64_t atLeastMin = std::max<std::int64_t>(position, info->min);
  info->position = static_cast<std::int32_t>(std::min<std::int64_t>(atLeastMin, info->max));
}

std::int64_t CGUISlideBar::Span() const { return std::int64_t{info->max} - info->min + 1; }

PickResult* CGUISlideBar::UpdateStepButtons(const Ray& ray) {
  PickResult* result = nullptr;
  if (down_) {
    result = down_->Update(ray);
    if (result != nullptr && result->clicked != nullptr) {
      Step(-1);
      return result;
    }
  }
  if (up_ && result == nullptr) {
    result = up_->Update(ray);
    if (result != nullptr && result->clicked != nullptr) Step(1);
  }
  return result;
}

void CGUISlideBar::Step(std::int32_t direction) {
  const std::int64_t moved = std::int64_t{info->position} + direction;
  if (moved >= info->min && moved <= info->max) {
    SetPosition(moved);
  } else if (wrap != 0) {
    info->position = direction < 0 ? info->max : info->min;
  }
}

void CGUISlideBar::PlaceSlider(float halfSlider) {
  if (!slider_) return;
  const double range = static_cast<double>(info->max) - info->min;
  const double part = range == 0.0 ? 0.0 : (static_cast<double>(info->position) - info->min) / range;
  const Vec3 size = barBox_.getMax() - barBox_.getMin();
  Vec3 place = sliderRest_.GetTranslation();
  if (orientation_ == Orientation::Horizontal) {
    place.x += static_cast<float>(part * static_cast<double>(size.x)) - halfSlider;
  } else {
    place.y -= static_cast<float>(part * static_cast<double>(size.z)) - halfSlider;
  }
  Matrix4x4 matrix = sliderRest_;
  matrix.SetTranslation(place);
  slider_->SetMatrix(matrix);
}

PickResult* CGUISlideBar::Report(PickResult* result) {
  if (result == nullptr) return nullptr;
  if (result->clicked != nullptr) {
    DispatchItemCommands(message::kNotification, *this);
    result->clicked = this;
  }
  if (result->hovered != nullptr) result->hovered = this;
  return result->clicked != nullptr || result->hovered != nullptr ? result : nullptr;
}

void CGUISlideBar::Release() {
  for (std::unique_ptr<CGUIButton>* button : {&slider_, &down_, &up_, &bar_}) {
    if (*button) (*button)->Release();
    button->reset();
  }
}

void CGUISlideBar::ShowNodes(std::uint32_t shown) {
  for (const auto* button : {&bar_, &slider_, &up_, &down_}) {
    if (*button) (*button)->ShowNodes(shown);
  }
}

}  // namespace qen
