#include "widgets/text.h"

#include <cmath>

#include "engine/drawing.h"
#include "engine/font.h"
#include "engine/gui.h"
#include "engine/ime.h"
#include "engine/item_info.h"
#include "engine/mesh.h"
#include "engine/scene_node.h"
#include "engine/string_converter.h"
#include "engine/system.h"
#include "engine/widget_state.h"
#include "formats/text_measures.h"
#include "widgets/bind_child.h"
#include "widgets/caret.h"
#include "widgets/hit_test.h"
#include "widgets/key_codes.h"
#include "widgets/numbers.h"
#include "widgets/slide_bar.h"
#include "widgets/text_source.h"

namespace qen {
namespace {

constexpr ICGUIText::Colors kDefaultColors{0x00FFFFFF, 0x000000FF, 0x0000FFFF, 0x00A0A0A0, 0, 0};
constexpr double kMeasuresPerUnit = 38.0;  // GetTextRect of 3D text

bool IsLowSurrogate(Char c) { return (c & 0xFC00U) == 0xDC00U; }
bool IsHighSurrogate(Char c) { return (c & 0xFC00U) == 0xD800U; }

// A character of two units comes as two keys: there must be room for both, and neither is taken without the other.
bool Takes(const String& text, Char key, std::int32_t maxChars) {
  const std::size_t room = maxChars > 0 ? static_cast<std::size_t>(maxChars) : 0;
  if (IsLowSurrogate(key) && (text.empty() || !IsHighSurrogate(text.back()))) return false;
  return text.size() + (IsHighSurrogate(key) ? 2 : 1) <= room;
}

// The first unit of a pair whose second one did not come.
void DropHalf(String& text, Char nextKey) {
  if (!text.empty() && IsHighSurrogate(text.back()) && !IsLowSurrogate(nextKey)) text.pop_back();
}

void RemoveLastCharacter(String& text) {
  if (text.empty()) return;
  const bool pair = text.size() > 1 && IsLowSurrogate(text.back()) && IsHighSurrogate(text[text.size() - 2]);
  text.resize(text.size() - (pair ? 2 : 1));
}

// The box's size in whole world units, moved down by what is scrolled.
Rect VisibleArea(const AABB& box, float scrolled) {
  const auto top = Truncate<std::int16_t>(static_cast<double>(scrolled));
  const auto width = Truncate<std::int16_t>(2.0 * static_cast<double>(box.halfSize.x));
  const auto height = Truncate<std::int16_t>(2.0 * static_cast<double>(box.halfSize.z));
  return {0, top, width, Truncate<std::int16_t>(static_cast<double>(height) + top)};
}

}  // namespace

CGUIText::CGUIText(const IChildNodes& nodes) : nodes_(nodes) {}

CGUIText::~CGUIText() { DestroyFont(); }

void CGUIText::Create(ICGUIPageObject* ownPage, ItemInfo* ownInfo, TMNode* const* ownNode) {
  page = ownPage;
  info = ownInfo;
  node = ownNode != nullptr ? *ownNode : nullptr;
  BindLayoutBox();
  colors_ = kDefaultColors;
  fontDesc_.lfHeight = -21;
  fontDesc_.lfWeight = 700;
  fontDesc_.SetFaceName(u"Courier");
  RecreateFont();
  if (node == nullptr) return;
  hook_.LetWidgetDrawInstead();
  slideBar_ = BindChild<CGUISlideBar>(nodes_, *this, u"slidery");
}

void CGUIText::BindLayoutBox() {
  textMatrix_ = {};
  if (node == nullptr) return;
  if (nodes_.FindChildNode(node, u"normal", normalNode, normalIndex)) {
    format_ = DT_WORDBREAK | DT_EXPANDTABS;
    const AABB box = normalNode->mesh != nullptr ? normalNode->mesh->GetAABB() : AABB{};
    textMatrix_ = {box.center.x - box.halfSize.x, box.center.z + box.halfSize.z};
  } else {
    format_ = DT_NOCLIP;
    normalNode = node;
    normalIndex = nodes_.NodePosition(node);
  }
  hook_.Attach(*normalNode, *info, this);
}

void CGUIText::RecreateFont() {
  DestroyFont();
  FontManager* fonts = FontManager::GetSingleton();
  if (fonts == nullptr) return;
  font_ = fonts->CreateEx(fontDesc_.lfFaceName, fontDesc_.lfHeight, fontDesc_.lfWidth, fontDesc_.lfWeight,
                          fontDesc_.IsItalic(), 1, kDefaultGroup);
}

void CGUIText::DestroyFont() {
  FontManager* fonts = FontManager::GetSingleton();
  if (font_ != nullptr && fonts != nullptr) fonts->Destroy(font_);
  font_ = nullptr;
}

PickResult* CGUIText::Update(const Ray& ray) {
  if (normalNode == nullptr) return nullptr;
  hook_.Show(false);
  if (info->visible == 0) {
    ShowNodes(0);
    state = widget_state::kHidden;
    return nullptr;
  }
  if (font_ == nullptr) return nullptr;
  if (slideBar_) slideBar_->Update(ray);
  hook_.Show(true);
  const bool clicked = info->mouseState == mouse_state::kReleased && info->disabled == 0 && HitsNode(ray, *normalNode);
  if (clicked && editable_ != 0) state = widget_state::kEditing;
  if (state != widget_state::kEditing) return nullptr;
  if (System::ime != nullptr) System::ime->Enable(true);
  TakeKey();
  return nullptr;
}

CGUIText::EditedText& CGUIText::Edited() {
  if (edited_ == nullptr) edited_ = std::make_unique<EditedText>();
  return *edited_;
}

void CGUIText::TakeKey() {
  String& typed = Edited().text;
  if (info->key != 0) DropHalf(typed, info->key);
  switch (info->key) {
    case 0:
      break;
    case key_code::kBackspace:
      RemoveLastCharacter(typed);
      break;
    case key_code::kEnter:
      state = widget_state::kHidden;
      break;
    default:
      if (Takes(typed, info->key, maxChars_)) typed += info->key;
  }
}

float CGUIText::LineHeight() const {
  TextMetric metric;
  if (font_ != nullptr) font_->GetTextMetric(metric);
  return static_cast<float>(metric.tmHeight) * formats::kUnitsAPixel;
}

void CGUIText::Render(const Matrix4x4& world, const AABB& box) {
  if (font_ == nullptr) return;
  Drawing drawing;
  drawing.BeginText3D(formats::kUnitsAPixel);
  drawing.SetFont(font_);

  const float lineHeight = LineHeight();
  const float scrolled = slideBar_ ? static_cast<float>(info->position) * lineHeight : 0.0F;
  Matrix4x4 matrix = world * textMatrix_;
  matrix.SetTranslation(matrix.GetTranslation() + Vec3{0.0F, scrolled - lineHeight, 0.0F});
  const Rect area = VisibleArea(box, scrolled);
  const std::uint32_t format = format_ | (centered_ != 0 ? DT_CENTER : 0U);
  const String& words = ShownText();
  DrawWords(drawing, matrix, area, format, words);
  if (slideBar_) UpdateScrollRange(drawing, box, format, words);
  drawing.EndText();
}

const String& CGUIText::ShownText() {
  if (editable_ == 0 && state != widget_state::kEditing) return textId_ == -1 ? ownText_ : Words(textId_);
  String& shown = Edited().shown;
  shown = editable_ != 0 ? Edited().text : textId_ == -1 ? ownText_ : Words(textId_);
  if (state == widget_state::kEditing && IsCaretShown()) shown += u'|';
  return shown;
}

void CGUIText::DrawWords(Drawing& drawing, const Matrix4x4& matrix, const Rect& area, std::uint32_t format,
                         const String& words) const {
  const bool onMouse = state == widget_state::kOnMouse;
  if (HasShadow()) {
    drawing.DrawText3D(ShadowMatrix(matrix), area, format, Opaque(colors_[onMouse ? kShadowOnMouse : kShadow]),
                       words.c_str());
  }
  const std::uint32_t color = colors_[onMouse ? kOnMouse : info->disabled != 0 ? kDisabled : kNormal];
  drawing.DrawText3D(matrix, area, format, Opaque(color), words.c_str());
}

bool CGUIText::HasShadow() const { return shadowOffset_ != 0.0F && std::isfinite(shadowOffset_); }

Matrix4x4 CGUIText::ShadowMatrix(const Matrix4x4& words) const {
  const float offset = shadowOffset_ * 0.1F;
  Matrix4x4 shadow = words;
  shadow.SetTranslation(words.GetTranslation() + Vec3{offset, -offset, offset});
  return shadow;
}

Color CGUIText::Opaque(std::uint32_t abgr) const { return Color(Color::ABGRToARGB(alpha_ | abgr)); }

void CGUIText::UpdateScrollRange(Drawing& drawing, const AABB& box, std::uint32_t format, const String& words) {
  const auto lineHeight = static_cast<double>(LineHeight());
  const Rect width{0, 0, Truncate<std::int16_t>(2.0 * static_cast<double>(box.halfSize.x)), 0};
  const Rect measured = drawing.GetTextRect(width, format, u"%s", words.c_str());
  const double hidden = measured.bottom / kMeasuresPerUnit - 2.0 * static_cast<double>(box.halfSize.z);
  info->min = 0;
  info->max = lineHeight > 0.0 ? Truncate<std::int32_t>(hidden / lineHeight) : 0;
}

void CGUIText::Release() {
  if (slideBar_) slideBar_->Release();
  slideBar_.reset();
  hook_.Detach();
  DestroyFont();
}

void CGUIText::ShowNodes(std::uint32_t shown) {
  hook_.Show(shown != 0);
  if (slideBar_) slideBar_->ShowNodes(shown);
}

void CGUIText::SetNumber(std::int32_t number) { StoreText(StringConverter::ToString(number)); }

void CGUIText::SetText(const Char* words) { StoreText(words != nullptr ? words : u""); }

void CGUIText::SetText(const char* words) {
  const std::string_view bytes = words != nullptr ? words : "";
  String wide;
  for (const char byte : bytes) wide += static_cast<Char>(static_cast<unsigned char>(byte));
  StoreText(wide);
}

void CGUIText::StoreText(const String& words) {
  if (textId_ == -1) {
    ownText_ = words;
  } else if (System::gui != nullptr) {
    System::gui->SetLanguageText(textId_, words);
  }
}

}  // namespace qen
