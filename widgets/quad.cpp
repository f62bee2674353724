#include "widgets/quad.h"

#include <cmath>

#include "engine/drawing.h"
#include "engine/gui.h"
#include "engine/item_info.h"
#include "engine/system.h"
#include "engine/texture.h"
#include "widgets/child_nodes.h"
#include "widgets/interface_resources.h"
#include "widgets/move_node.h"

namespace qen {
namespace {

constexpr const Char* kDefaultTexture = u"textures\\guitex\\default_bag";
constexpr float kPhases = 2.0F;  // there and back, a second

}  // namespace

CGUIQuad::~CGUIQuad() { DestroyResources(); }

void CGUIQuad::Create(ICGUIPageObject* ownPage, ItemInfo* ownInfo, TMNode* const* ownNode) {
  page = ownPage;
  info = ownInfo;
  info->type = widget_type::kQuad;
  node = ownNode != nullptr ? *ownNode : nullptr;
  normalNode = node;
  if (node != nullptr) {
    normalIndex = nodes_.NodePosition(node);
    hook_.Attach(*node, *info, this);
  }
  record_.texture = kDefaultTexture;
  LoadTexture();
  ShowNodes(1);
}

void CGUIQuad::LoadTexture() {
  params_.RemoveTexture(TEXTURE_SLOT_1);
  DestroyResources();
  if (MaterialManager* materials = MaterialManager::GetSingleton()) {
    material_ = materials->GetByName(interface_resources::kMaterial, kDefaultGroup);
  }
  TextureManager* textures = TextureManager::GetSingleton();
  if (textures != nullptr)
    texture_ = textures->Load(record_.texture, kDefaultGroup, 0, interface_resources::kTextureFlags);
  if (texture_ != nullptr) params_.AddTexture(TEXTURE_SLOT_1, texture_);
}

void CGUIQuad::DestroyResources() {
  TextureManager* textures = TextureManager::GetSingleton();
  if (texture_ != nullptr && textures != nullptr) textures->Destroy(texture_);
  texture_ = nullptr;
  MaterialManager* materials = MaterialManager::GetSingleton();
  if (material_ != nullptr && materials != nullptr) materials->Destroy(material_);
  material_ = nullptr;
}

void CGUIQuad::SetQuadTexture(Texture* texture) {
  params_.RemoveTexture(TEXTURE_SLOT_1);
  Texture* shown = texture != nullptr ? texture : texture_;
  if (shown != nullptr) params_.AddTexture(TEXTURE_SLOT_1, shown);
}

void CGUIQuad::SetColor(std::uint32_t color, bool reset) { color_ = reset ? kDefaultColor : color; }

PickResult* CGUIQuad::Update(const Ray& /*ray*/) {
  const double frameTime = System::gui != nullptr ? System::gui->GetFrameTime() : 0.0;
  const float phase = phase_ + 2.0F * static_cast<float>(frameTime);
  phase_ = std::isfinite(phase) ? std::fmod(phase, kPhases) : 0.0F;
  if (phase_ < 0.0F) phase_ += kPhases;
  return nullptr;
}

float CGUIQuad::ScaleFactor() const {
  if (active_ == 0) return scale_;
  return phase_ < 1.0F ? 1.0F + (scale_ - 1.0F) * phase_ : scale_ + (phase_ - 1.0F) * (1.0F - scale_);
}

void CGUIQuad::Render(const Matrix4x4& world, const AABB& /*box*/) {
  if (record_.size == nullptr) return;
  const float factor = ScaleFactor();
  Matrix4x4 scaling;
  scaling.SetScale(factor, factor, factor);
  const float w = record_.size[0];
  const float d = record_.size[1];
  Drawing drawing;
  drawing.SetWorldMatrix(scaling * world);
  drawing.BeginQuads3D(material_, params_);
  drawing.DrawQuad3D({-w, 0.0F, d}, {w, 0.0F, d}, {-w, 0.0F, -d}, {w, 0.0F, -d},
                     Color((static_cast<std::uint32_t>(alpha_) << 24U) | color_));
  drawing.EndQuads();
}

void CGUIQuad::Release() {
  hook_.Detach();
  params_.RemoveTexture(TEXTURE_SLOT_1);
  DestroyResources();
}

void CGUIQuad::SetVisible(std::uint32_t /*visible*/) {}

void CGUIQuad::SetDisabled(std::uint32_t /*disabled*/) {}

void CGUIQuad::ShowNodes(std::uint32_t shown) { hook_.Show(shown != 0); }

void CGUIQuad::SetMatrix(const Matrix4x4& matrix) {
  MoveNode(*page, normalNode, normalIndex, matrix, matrix.Inverse());
}

}  // namespace qen
