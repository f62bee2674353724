#include "widgets/list.h"

#include <algorithm>
#include <utility>

#include "commands/dispatch.h"
#include "engine/color.h"
#include "engine/drawing.h"
#include "engine/gui.h"
#include "engine/item_info.h"
#include "engine/mesh.h"
#include "engine/messages.h"
#include "engine/ray.h"
#include "engine/scene_node.h"
#include "engine/system.h"
#include "engine/widget_state.h"
#include "formats/text_measures.h"
#include "widgets/bind_child.h"
#include "widgets/hit_test.h"
#include "widgets/item.h"
#include "widgets/key_codes.h"
#include "widgets/numbers.h"
#include "widgets/slide_bar.h"
#include "widgets/text.h"
#include "widgets/text_source.h"

namespace qen {
namespace {

// Of an update that is only made for what the list measures of itself.
constexpr Ray kMeasuringRay{{-1.0F, -1.0F, -1.0F}, {0.0F, 1.0F, 0.0F}, 1.0F};

constexpr std::int32_t kPlainRow = 0;
constexpr std::int32_t kRowOnMouse = 1;

}  // namespace

CGUIList::CGUIList(const IChildNodes& nodes) : nodes_(nodes) {}

CGUIList::~CGUIList() = default;

void CGUIList::Create(ICGUIPageObject* ownPage, ItemInfo* ownInfo, TMNode* const* ownNode) {
  page = ownPage;
  info = ownInfo;
  node = ownNode != nullptr ? *ownNode : nullptr;
  maxSelect = 1;
  if (nodes_.FindChildNode(node, u"list", normalNode, normalIndex)) {
    hook_.Attach(*normalNode, *info, this);
    hook_.LetWidgetDrawToo();
  }
  slideBar_ = BindChild<CGUISlideBar>(nodes_, *this, u"slidery");
  style_ = std::make_unique<CGUIText>(nodes_);
  text = style_.get();
  style_->Create(page, info, nullptr);
  style_->SetTextId(-1);
}

PickResult* CGUIList::Update(const Ray& ray) {
  result_ = {};
  if (info->visible == 0) {
    ShowNodes(0);
    state = widget_state::kHidden;
    return nullptr;
  }
  state = widget_state::kNormal;
  PickResult* result = nullptr;
  if (slideBar_) {
    slideBar_->wrap = maxSelect == 0 ? 1 : 0;
    result = slideBar_->Update(ray);
  }
  if (result == nullptr && HasBox()) {
    Measure();
    const LocalRay local = ToLocal(ray, *normalNode);
    const SlabHit hit = IntersectSlabs(normalNode->mesh->GetAABB(), local);
    if (hit.hit) {
      result_.hovered = this;
      result = &result_;
      if (maxSelect <= 1) StepSelection();
    }
    UpdateRows(local, hit);
  }
  hook_.Show(true);
  if (style_) style_->Update(ray);
  if (result == nullptr) return nullptr;
  if (result->clicked != nullptr) result->clicked = this;
  if (result->hovered != nullptr) result->hovered = this;
  return result->clicked != nullptr || result->hovered != nullptr ? result : nullptr;
}

bool CGUIList::HasBox() const { return normalNode != nullptr && normalNode->mesh != nullptr; }

// The rows that fit the box, and the range of the top row.
void CGUIList::Measure() {
  const AABB& box = normalNode->mesh->GetAABB();
  listMatrix_.SetTranslation({box.center.x - box.halfSize.x, box.center.z + box.halfSize.z, 0.0F});
  lineHeight_ = style_ ? style_->LineHeight() : 0.0F;
  boxWidth_ = 2.0F * box.halfSize.x;
  boxHeight_ = 2.0F * box.halfSize.z;
  const double wholeHeight = Truncate<std::uint32_t>(static_cast<double>(boxHeight_));
  rows_ = lineHeight_ > 0.0F ? Truncate<std::int32_t>(wholeHeight / static_cast<double>(lineHeight_)) : 0;
  info->min = 0;
  info->max = Truncate<std::int32_t>(static_cast<double>(items_.size()));
  info->max = rows_ <= info->max ? info->max - rows_ : info->min;
}

CGUIList::Selection CGUIList::FindSelection() const {
  Selection selection;
  for (std::size_t i = 0; i < items_.size(); ++i) {
    if (items_[i]->selected == 0) continue;
    if (selection.count++ == 0) selection.first = i;
    selection.last = i;
  }
  return selection;
}

// Looks through the entries only when one of them may have been changed, by the list or by the host.
const CGUIList::Selection& CGUIList::CurrentSelection() {
  const std::uint64_t changes = SelectedFlag::ChangeCount();
  if (selectionSeen_ != changes) selection_ = FindSelection();
  selectionSeen_ = changes;
  return selection_;
}

// The two step keys move a single selection round the list. Selecting measures, which takes back this update's result.
void CGUIList::StepSelection() {
  if (info->key != key_code::kUp && info->key != key_code::kDown) return;
  const Selection selection = CurrentSelection();
  if (selection.count == 0) return;
  const std::size_t count = items_.size();
  const std::size_t next = selection.first + (info->key == key_code::kUp ? 1 : count - 1);
  Select(*items_[selection.first], false);
  CGUIItem& item = *items_[next % count];
  SelectItem(&item);
  Select(item, true);
}

std::size_t CGUIList::FirstShown() const { return static_cast<std::size_t>(std::max(info->position, 0)); }

std::size_t CGUIList::EndShown() const {
  return std::min(FirstShown() + static_cast<std::size_t>(std::max(rows_, 0)), items_.size());
}

void CGUIList::UpdateRows(const LocalRay& ray, const SlabHit& hit) {
  const AABB& box = normalNode->mesh->GetAABB();
  const Vec3 point = ray.origin + ray.direction * hit.distance;
  const float left = -box.halfSize.x - box.center.x;
  const float right = box.halfSize.x - box.center.x;
  const float top = -box.halfSize.z - box.center.z;
  const bool inColumn = hit.hit && left <= point.x && point.x <= right;
  const bool clicked = info->mouseState == mouse_state::kReleased;

  for (std::size_t i = FirstShown(); i < EndShown(); ++i) {
    CGUIItem& item = *items_[i];
    if (item.info->disabled != 0) continue;
    const auto row = static_cast<float>(i - FirstShown());
    const bool onMouse =
        inColumn && top + row * lineHeight_ <= -point.z && -point.z <= top + (row + 1.0F) * lineHeight_;
    if (!onMouse) {
      item.state = kPlainRow;
      if (maxSelect == 0 && i == FirstShown()) FollowTopRow(i);
      continue;
    }
    if (clicked) ClickItem(item);
    item.state = item.selected == 0 ? kRowOnMouse : kPlainRow;
    if (System::gui != nullptr) System::gui->SetTooltip(item.info->tooltip);
  }
}

void CGUIList::ClickItem(CGUIItem& item) {
  item.state = kPlainRow;
  if (maxSelect > 1) {
    const bool selects = item.selected == 0 && CurrentSelection().count < maxSelect;
    item.selected = selects ? 1 : 0;
  } else if (maxSelect == 1 && item.selected == 0) {
    const Selection before = CurrentSelection();
    if (before.count > 0) Select(*items_[before.last], false);
    Select(item, true);
  }
}

void CGUIList::FollowTopRow(std::size_t top) {
  const Selection before = CurrentSelection();
  if (before.count > 0 && before.last == top) return;
  if (before.count > 0) Select(*items_[before.last], false);
  Select(*items_[top], true);
  if (before.count > 1) return;
  selection_ = {1, top, top};
  selectionSeen_ = SelectedFlag::ChangeCount();
}

void CGUIList::Select(CGUIItem& item, bool selected) {
  item.selected = selected ? 1 : 0;
  DispatchItemCommands(message::kCommand, item);
}

void CGUIList::Render(const Matrix4x4& world, const AABB& /*box*/) {
  if (style_ == nullptr || style_->GetFont() == nullptr) return;
  Drawing drawing;
  drawing.BeginText3D(formats::kUnitsAPixel);
  drawing.SetFont(style_->GetFont());
  Matrix4x4 matrix = world * listMatrix_;
  float height = boxHeight_;
  for (std::size_t i = FirstShown(); i < EndShown(); ++i) {
    matrix.SetTranslation(matrix.GetTranslation() - Vec3{0.0F, lineHeight_, 0.0F});
    DrawRow(drawing, *items_[i], matrix, height);
    height -= lineHeight_;
  }
  drawing.EndText();
}

void CGUIList::DrawRow(Drawing& drawing, const CGUIItem& item, const Matrix4x4& matrix, float height) const {
  constexpr std::uint32_t kOpaque = 0xFF000000U;
  const ICGUIText::Colors& colors = style_->GetColors();
  std::uint32_t color = colors[ICGUIText::kNormal];
  std::uint32_t shadow = colors[ICGUIText::kShadow];
  if (item.selected != 0) {
    color = colors[ICGUIText::kSelect];
    shadow = colors[ICGUIText::kShadowOnMouse];
  }
  if (item.state != kPlainRow) color = colors[ICGUIText::kOnMouse];
  if (item.info->disabled != 0) color = colors[ICGUIText::kDisabled];

  const std::uint32_t format = DT_SINGLELINE | (style_->GetCentered() != 0 ? DT_CENTER : 0U);
  const String& words = item.textId == -1 ? item.displayText : Words(item.textId);
  if (style_->HasShadow()) {
    drawing.DrawText3D(style_->ShadowMatrix(matrix), boxWidth_, height, format,
                       Color(Color::ABGRToARGB(shadow | kOpaque)), words.c_str());
  }
  drawing.DrawText3D(matrix, boxWidth_, height, format, Color(Color::ABGRToARGB(color | kOpaque)), words.c_str());
}

void CGUIList::Release() {
  items_.clear();
  ForgetSelection();
  if (style_) style_->Release();
  style_.reset();
  text = nullptr;
  if (slideBar_) slideBar_->Release();
  slideBar_.reset();
  hook_.Detach();
}

void CGUIList::ShowNodes(std::uint32_t shown) {
  hook_.Show(shown != 0);
  if (slideBar_) slideBar_->ShowNodes(shown);
}

void CGUIList::Clear() {
  if (info != nullptr) info->position = 0;
  items_.clear();
  ForgetSelection();
}

void CGUIList::SelectItem(ICGUIItem* item) {
  // The input of this frame is not for the measuring update.
  const Char key = std::exchange(info->key, u'\0');
  const std::uint32_t mouse = std::exchange(info->mouseState, mouse_state::kNone);
  Update(kMeasuringRay);
  info->key = key;
  info->mouseState = mouse;
  if (HasBox()) Measure();  // a hidden list's update does not, nor one whose slide bar is in the ray's way

  for (std::size_t i = 0; i < items_.size(); ++i) {
    CGUIItem& candidate = *items_[i];
    candidate.selected = &candidate == item && candidate.info->disabled == 0 ? 1 : 0;
    if (candidate.selected == 0) continue;
    const auto lastTop = static_cast<std::int32_t>(items_.size()) - rows_;
    info->position = std::max(std::min(static_cast<std::int32_t>(i), lastTop), 0);
  }
}

std::vector<std::uint32_t>& CGUIList::GetSelectedIndices(std::vector<std::uint32_t>& indices) {
  indices.clear();
  for (std::size_t i = 0; i < items_.size(); ++i) {
    if (items_[i]->selected != 0) indices.push_back(static_cast<std::uint32_t>(i));
  }
  return indices;
}

std::uint32_t CGUIList::GetItemCount() { return static_cast<std::uint32_t>(items_.size()); }

ICGUIItem* CGUIList::AddItem() {
  items_.push_back(std::make_unique<CGUIItem>(this));
  return items_.back().get();
}

ICGUIItem* CGUIList::AddItemCopy(const ICGUIItem* source) {
  if (source == nullptr) return nullptr;
  auto item = std::make_unique<CGUIItem>(this);
  static_cast<ICGUIItem&>(*item) = *source;
  items_.push_back(std::move(item));
  return items_.back().get();
}

void CGUIList::RemoveItem(ICGUIItem* item) {
  const auto found =
      std::find_if(items_.begin(), items_.end(), [item](const auto& candidate) { return candidate.get() == item; });
  if (found != items_.end()) RemoveItemAt(static_cast<std::uint32_t>(found - items_.begin()));
}

void CGUIList::RemoveItemAt(std::uint32_t index) {
  if (index >= items_.size()) return;
  items_.erase(items_.begin() + static_cast<std::ptrdiff_t>(index));
  ForgetSelection();
}

ICGUIItem* CGUIList::GetItem(std::uint32_t index) { return index < items_.size() ? items_[index].get() : nullptr; }

}  // namespace qen
