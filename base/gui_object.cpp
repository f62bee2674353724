#include "engine/gui_object.h"

#include "engine/gui_page_object.h"
#include "engine/gui_widgets.h"
#include "engine/item_info.h"
#include "engine/mesh.h"
#include "engine/scene_instance.h"
#include "engine/scene_node.h"

namespace qen {
namespace {

std::uint64_t selectionChanges = 1;

}  // namespace

ICGUIObject::ICGUIObject() = default;
ICGUIObject::~ICGUIObject() = default;

void ICGUIObject::Create(ICGUIPageObject*, ItemInfo*, TMNode* const*) {}
PickResult* ICGUIObject::Update(const Ray&) { return nullptr; }
void ICGUIObject::Render(const Matrix4x4&, const AABB&) {}
void ICGUIObject::Release() {}
void ICGUIObject::ShowNodes(std::uint32_t) {}
void ICGUIObject::SetMatrix(const Matrix4x4&) {}
std::int32_t& ICGUIObject::GetId() { return id; }

void ICGUIObject::SetVisible(std::uint32_t visible) {
  if (info != nullptr) info->visible = visible;
}

void ICGUIObject::SetDisabled(std::uint32_t disabled) {
  if (info != nullptr) info->disabled = disabled;
}

void ICGUIObject::SetShowBox(std::uint32_t shown) {
  if (info != nullptr) info->showBox = shown;
}

void ICGUIObject::GetMatrix(Matrix4x4& matrix) {
  if (normalIndex < 0 || page == nullptr || page->instance == nullptr) return;
  const auto& matrices = page->instance->nodeMatrices;
  const auto index = static_cast<std::size_t>(normalIndex);
  if (index < matrices.size()) matrix = matrices[index];
}

void ICGUIObject::GetAABB(AABB& box) {
  if (normalNode != nullptr && normalNode->mesh != nullptr) box = normalNode->mesh->GetAABB();
}

std::uint64_t SelectedFlag::ChangeCount() { return selectionChanges; }
void SelectedFlag::CountChange() { ++selectionChanges; }

ICGUIItem& ICGUIItem::operator=(const ICGUIItem& other) {
  name = other.name;
  displayText = other.displayText;
  textId = other.textId;
  commentId = other.commentId;
  return *this;
}

ICGUIPageObject::ICGUIPageObject() = default;
ICGUIPageObject::~ICGUIPageObject() = default;

}  // namespace qen
